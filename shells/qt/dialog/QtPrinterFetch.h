// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>

#include "printing/Printer.h"

namespace publishing {

// Opens a print queue and its PPD on a thread of its own, so that a slow server does not freeze the
// window. Lives on the thread of the user interface, where both functions are called; destroying it
// means that nobody waits any more.
class QtPrinterFetch {
 public:
  // `done` gets the printer, or null and a message for the user. `late` is called once before, if
  // that takes longer than `seconds`; the fetch goes on.
  using Done = std::function<void(std::unique_ptr<Printer> printer, const std::string& problem)>;

  QtPrinterFetch(const std::string& queue, unsigned seconds, Done done, std::function<void()> late);
  QtPrinterFetch(const QtPrinterFetch&) = delete;
  QtPrinterFetch& operator=(const QtPrinterFetch&) = delete;

 private:
  // The thread works on it first, then the user interface, never both.
  struct Request {
    std::string queue;
    std::unique_ptr<Printer> printer;
    std::string problem;
  };

  static void open(Request& request);
  void opened(Request& request);

  Done done_;
  bool isOpened_ = false;
  QObject receiver_;
};

}  // namespace publishing
