// SPDX-License-Identifier: Apache-2.0
// Faults in the panel's own code inside a print dialog: the program must not notice.
#include <cstdlib>
#include <new>
#include <stdexcept>

#include <gtest/gtest.h>

#include "shells/Guarded.h"
#include "shells/gtk/GtkControls.h"
#include "shells/gtk/Toolkit.h"
#include "shells/gtk/dialog/PrintDialogHost.h"
#include "tests/support/GtkGestures.h"

namespace {

// How many more allocations of this thread succeed; without limit when negative.
thread_local int allocationsLeft = -1;

void* allocate(std::size_t size) {
  if (allocationsLeft == 0) throw std::bad_alloc();
  if (allocationsLeft > 0) --allocationsLeft;
  if (void* memory = std::malloc(size != 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

// The panel's own memory; the toolkit has its own functions for its own.
void* operator new(std::size_t size) {
  return allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace publishing {
namespace {

int tabsOf(GtkWidget* dialog) {
  GObject* tabs = gtk_widget_get_template_child(dialog, GTK_TYPE_PRINT_UNIX_DIALOG, "notebook");
  return gtk_notebook_get_n_pages(GTK_NOTEBOOK(tabs));
}

// Whether a new dialog got its panel although only so many allocations succeeded.
bool attachesWith(int allocations) {
  const auto dialog = shareGObject(gtk_print_unix_dialog_new(nullptr, nullptr));
  const int bareTabs = tabsOf(dialog.get());
  allocationsLeft = allocations;
  const bool attached =
      guarded([&] { PrintDialogHost::attach(GTK_PRINT_UNIX_DIALOG(dialog.get())); });
  allocationsLeft = -1;
  EXPECT_EQ(tabsOf(dialog.get()), bareTabs + (attached ? 1 : 0)) << allocations;
  EXPECT_EQ(PrintDialogHost::of(GTK_PRINT_UNIX_DIALOG(dialog.get())) != nullptr, attached);
  toolkit::destroyWindow(GTK_WINDOW(dialog.get()));
  return attached;
}

TEST(DialogFaults, MemoryThatRunsOutAtAnyStepLeavesTheDialogBare) {
  int allocations = 0;
  while (!attachesWith(allocations))
    ++allocations;
  EXPECT_GT(allocations, 5);
}

TEST(DialogFaults, ThrowingActionEndsBeforeTheToolkit) {
  const auto box = shareGObject(gtk_check_button_new());
  GtkCheckBox control(GTK_CHECK_BUTTON(box.get()));
  int calls = 0;
  control.setAction("toggled", [&](CheckBox&) {
    ++calls;
    throw std::runtime_error("fault");
  });
  EXPECT_NO_THROW(gestures::click(box.get()));
  EXPECT_NO_THROW(gestures::click(box.get()));
  EXPECT_EQ(calls, 2);
}

TEST(DialogFaults, WhatIsThrownNeedNotBeAnException) {
  EXPECT_FALSE(guarded([] { throw 1; }));  // NOLINT(hicpp-exception-baseclass)
  EXPECT_TRUE(guarded([] {}));
}

}  // namespace
}  // namespace publishing
