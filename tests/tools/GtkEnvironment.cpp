// What every test program on real widgets needs: the toolkit set up, and each warning or critical
// of the toolkit a failure of the test in which it appears.
#include <gtest/gtest.h>
#include <gtk/gtk.h>

namespace publishing {
namespace {

GLogWriterOutput failOnWarnings(GLogLevelFlags level, const GLogField* fields, gsize count,
                                gpointer) {
  const auto bad = G_LOG_LEVEL_WARNING | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR;
  if ((level & bad) != 0) {
    gchar* text = g_log_writer_format_fields(level, fields, count, FALSE);
    ADD_FAILURE() << "The toolkit complains: " << text;
    g_free(text);
  }
  return g_log_writer_default(level, fields, count, nullptr);
}

class GtkEnvironment final : public testing::Environment {
 public:
  void SetUp() override {
    g_log_set_writer_func(failOnWarnings, nullptr, nullptr);
    ASSERT_TRUE(gtk_init_check(nullptr, nullptr))
        << "no display; run this with tests/tools/with-display";
    g_type_class_unref(g_type_class_ref(GTK_TYPE_WIDGET));  // registers the signals
  }
};

const auto* const environment = testing::AddGlobalTestEnvironment(new GtkEnvironment);

}  // namespace
}  // namespace publishing
