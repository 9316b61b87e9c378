// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PrinterFetch.h"

#include <exception>
#include <utility>

#include "shells/Guarded.h"
#include "shells/gtk/GObjectPtr.h"

namespace publishing {

PrinterFetch::PrinterFetch(const std::string& queue, guint seconds, Done done,
                           std::function<void()> late)
    : request_(std::make_shared<Request>(Request{queue, nullptr, {}, this})),
      done_(std::move(done)),
      late_(std::move(late)),
      clock_(g_timeout_add_seconds(seconds, &PrinterFetch::tooLate, this)) {
  const GObjectPtr<GTask> task(g_task_new(nullptr, nullptr, &PrinterFetch::opened, nullptr));
  g_task_set_task_data(task.get(), new std::shared_ptr<Request>(request_), [](gpointer shared) {
    delete static_cast<std::shared_ptr<Request>*>(shared);
  });
  g_task_run_in_thread(task.get(), &PrinterFetch::open);
}

PrinterFetch::~PrinterFetch() {
  request_->owner = nullptr;
  stopClock();
}

void PrinterFetch::stopClock() {
  if (clock_ != 0) g_source_remove(std::exchange(clock_, 0U));
}

void PrinterFetch::open(GTask* task, gpointer, gpointer shared, GCancellable*) {
  auto& request = **static_cast<std::shared_ptr<Request>*>(shared);
  try {
    request.printer = std::make_unique<Printer>(Printer::openQueue(request.queue));
  } catch (const std::exception& error) {
    request.problem = error.what();
  }
  g_task_return_boolean(task, TRUE);
}

void PrinterFetch::opened(GObject*, GAsyncResult* result, gpointer) {
  auto& request = **static_cast<std::shared_ptr<Request>*>(g_task_get_task_data(G_TASK(result)));
  if (request.owner == nullptr) return;
  request.owner->stopClock();
  // What is called may destroy the owner.
  const Done done = std::move(request.owner->done_);
  guarded([&] { done(std::move(request.printer), request.problem); });
}

gboolean PrinterFetch::tooLate(gpointer self) {
  auto& fetch = *static_cast<PrinterFetch*>(self);
  fetch.clock_ = 0;
  guarded([&] { fetch.late_(); });
  return G_SOURCE_REMOVE;
}

}  // namespace publishing
