// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PrinterFetch.h"

#include <optional>

#include <gio/gio.h>
#include <gtest/gtest.h>

#include "tests/support/GtkStage.h"

namespace publishing {
namespace {

// A print server that takes connections and never answers.
class SilentServer {
 public:
  SilentServer() {
    const guint16 port = g_socket_listener_add_any_inet_port(listener(), nullptr, nullptr);
    g_setenv("CUPS_SERVER", ("127.0.0.1:" + std::to_string(port)).c_str(), TRUE);
  }
  ~SilentServer() { g_unsetenv("CUPS_SERVER"); }

  // Hangs up on whoever waits, now and later: nobody was accepted yet.
  void hangUp() { g_socket_listener_close(listener()); }

 private:
  [[nodiscard]] GSocketListener* listener() const { return listener_.get(); }

  GObjectPtr<GSocketListener> listener_{g_socket_listener_new()};
};

TEST(PrinterFetch, SilentServerIsReportedWhileTheFetchGoesOn) {
  SilentServer server;
  int late = 0;
  std::optional<std::string> problem;
  const PrinterFetch fetch(
      "Office", 1,
      [&](const std::unique_ptr<Printer>& printer, const std::string& message) {
        EXPECT_EQ(printer, nullptr);
        problem = message;
      },
      [&] { ++late; });
  while (late == 0)
    g_main_context_iteration(nullptr, TRUE);
  EXPECT_FALSE(problem);
  server.hangUp();
  while (!problem)
    g_main_context_iteration(nullptr, TRUE);
  EXPECT_NE(*problem, "");
  EXPECT_EQ(late, 1);
}

TEST(PrinterFetch, NobodyIsCalledOnceItIsDestroyed) {
  {
    const PrinterFetch destroyed(
        "no such queue", 1, [](const auto&...) { ADD_FAILURE() << "called"; },
        [] { ADD_FAILURE() << "called"; });
  }
  bool done = false;
  const PrinterFetch next(
      "no such queue", 1, [&](const auto&...) { done = true; }, [] {});
  while (!done)
    g_main_context_iteration(nullptr, TRUE);
  GtkStage::settle();
}

}  // namespace
}  // namespace publishing
