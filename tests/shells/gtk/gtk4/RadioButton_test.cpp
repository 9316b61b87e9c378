// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/gtk4/RadioButton.h"

#include <gtest/gtest.h>

#include "shells/gtk/GObjectPtr.h"
#include "shells/gtk/SignalHandlers.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

class RadioButtonTest : public testing::Test {
 protected:
  RadioButtonTest() {
    callAtEach(first.get(), "clicked", [this] { ++clicks; });
  }

  // What comes before GTK's own answer when the mouse button is released on the radio button.
  void releaseMouse() {
    const GObjectPtr<GListModel> controllers(
        gtk_widget_observe_controllers(GTK_WIDGET(first.get())));
    for (guint i = 0; i < g_list_model_get_n_items(controllers.get()); ++i) {
      const GObjectPtr<GtkEventController> controller(
          GTK_EVENT_CONTROLLER(g_list_model_get_item(controllers.get(), i)));
      if (GTK_IS_GESTURE_CLICK(controller.get()) &&
          gtk_event_controller_get_propagation_phase(controller.get()) == GTK_PHASE_CAPTURE)
        g_signal_emit_by_name(controller.get(), "released", 1, 1.0, 1.0);
    }
  }

  GObjectPtr<GtkCheckButton> first = shareGObject(toolkit::newRadioButton(nullptr));
  GObjectPtr<GtkCheckButton> second = shareGObject(toolkit::newRadioButton(first.get()));
  int clicks = 0;
};

TEST_F(RadioButtonTest, EachActivationIsOneClick) {
  for (int activations = 1; activations <= 3; ++activations) {
    gtk_widget_activate(GTK_WIDGET(first.get()));
    EXPECT_TRUE(toolkit::isActive(first.get()));
    EXPECT_EQ(clicks, activations);
  }
}

TEST_F(RadioButtonTest, AClickOnTheActiveOneIsTold) {
  toolkit::setActive(first.get(), true);
  clicks = 0;
  releaseMouse();
  EXPECT_TRUE(toolkit::isActive(first.get()));
  EXPECT_EQ(clicks, 1);
}

TEST_F(RadioButtonTest, AClickThatMakesItActiveIsToldOnce) {
  toolkit::setActive(second.get(), true);
  releaseMouse();
  toolkit::setActive(first.get(), true);  // GTK's answer
  EXPECT_FALSE(toolkit::isActive(second.get()));
  EXPECT_EQ(clicks, 1);
}

TEST_F(RadioButtonTest, NothingIsToldOfTheOneThatIsTurnedOff) {
  toolkit::setActive(first.get(), true);
  clicks = 0;
  toolkit::setActive(second.get(), true);
  EXPECT_EQ(clicks, 0);
}

}  // namespace
}  // namespace publishing
