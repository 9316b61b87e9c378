// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtPrinterFetch.h"

#include <QThread>
#include <QTimer>
#include <chrono>
#include <exception>
#include <utility>

#include "shells/Guarded.h"

namespace publishing {

QtPrinterFetch::QtPrinterFetch(const std::string& queue, unsigned seconds, Done done,
                               std::function<void()> late)
    : done_(std::move(done)) {
  const auto request = std::make_shared<Request>(Request{queue, nullptr, {}});
  // What is called may destroy the fetch.
  QTimer::singleShot(std::chrono::seconds(seconds), &receiver_, [this, late = std::move(late)] {
    if (!isOpened_) guarded([call = late] { call(); });
  });
  QThread* thread = QThread::create([request] { open(*request); });
  QObject::connect(thread, &QThread::finished, &receiver_, [this, request] { opened(*request); });
  QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
  thread->start();
}

void QtPrinterFetch::open(Request& request) {
  try {
    request.printer = std::make_unique<Printer>(Printer::openQueue(request.queue));
  } catch (const std::exception& error) {
    request.problem = error.what();
  }
}

void QtPrinterFetch::opened(Request& request) {
  isOpened_ = true;
  const Done done = std::move(done_);
  guarded([&] { done(std::move(request.printer), request.problem); });
}

}  // namespace publishing
