// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <gio/gio.h>

#include "printing/Printer.h"

namespace publishing {

// Opens a print queue and its PPD on a thread of its own, so that a slow server does not freeze the
// window. Lives on the thread of the user interface, where both functions are called; destroying it
// means that nobody waits any more.
class PrinterFetch {
 public:
  // `done` gets the printer, or null and a message for the user. `late` is called once before, if
  // that takes longer than `seconds`; the fetch goes on.
  using Done = std::function<void(std::unique_ptr<Printer> printer, const std::string& problem)>;

  PrinterFetch(const std::string& queue, guint seconds, Done done, std::function<void()> late);
  PrinterFetch(const PrinterFetch&) = delete;
  PrinterFetch& operator=(const PrinterFetch&) = delete;
  ~PrinterFetch();

 private:
  // What the thread and the user interface share; the thread works on it first, then the user
  // interface, never both.
  struct Request {
    std::string queue;
    std::unique_ptr<Printer> printer;
    std::string problem;
    PrinterFetch* owner;  // of the user interface alone
  };

  static void open(GTask* task, gpointer source, gpointer request, GCancellable* cancellable);
  static void opened(GObject* source, GAsyncResult* result, gpointer data);
  static gboolean tooLate(gpointer self);
  void stopClock();

  std::shared_ptr<Request> request_;
  Done done_;
  std::function<void()> late_;
  guint clock_;
};

}  // namespace publishing
