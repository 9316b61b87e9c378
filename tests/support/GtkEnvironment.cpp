// SPDX-License-Identifier: Apache-2.0
// What every test program on real widgets needs: the toolkit set up, and each warning or critical
// of the toolkit a failure of the test in which it appears.
#include <string>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include "tests/support/GtkGestures.h"

namespace publishing {
namespace {

// What GTK's print backends say where the machine runs no such services.
bool isAboutTheMachine(const std::string& text) {
  return text.find("D-Bus system bus") != std::string::npos ||
         text.find("failed to contact colord") != std::string::npos;
}

GLogWriterOutput failOnWarnings(GLogLevelFlags level, const GLogField* fields, gsize count,
                                gpointer) {
  const auto bad = G_LOG_LEVEL_WARNING | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR;
  if ((level & bad) != 0) {
    gchar* formatted = g_log_writer_format_fields(level, fields, count, FALSE);
    const std::string text = formatted;
    g_free(formatted);
    if (!isAboutTheMachine(text)) ADD_FAILURE() << "The toolkit complains: " << text;
  }
  return g_log_writer_default(level, fields, count, nullptr);
}

class GtkEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    g_log_set_writer_func(failOnWarnings, nullptr, nullptr);
    ASSERT_TRUE(gestures::startToolkit()) << "no display; run this with tests/support/with-display";
    g_type_class_unref(g_type_class_ref(GTK_TYPE_WIDGET));  // registers the signals
  }
};

const auto* const environment = testing::AddGlobalTestEnvironment(new GtkEnvironment);

}  // namespace
}  // namespace publishing
