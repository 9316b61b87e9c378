// SPDX-License-Identifier: Apache-2.0
// qt-extension-bench QUEUE OTHER_QUEUE: what one Qt program pays for its print dialog, with or
// without the extension in QT_PLUGIN_PATH. Knows nothing of the panel. Run by
// bench/extension-bench-run, and writes what extension-bench writes for GTK:
//   drawn MS     from making the first dialog until it is drawn with its printer selected
//   first MS     processor time of the user interface's thread for the first dialog
//   change MS    the same for the choice of another printer, median
//   memory KIB   memory of the process that is its own, after the first dialog
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>

namespace {

constexpr int kChanges = 5;
constexpr int kQuiet = 200;  // milliseconds without an event

double processorTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

void settle() {
  QEventLoop loop;
  QTimer::singleShot(kQuiet, &loop, &QEventLoop::quit);
  loop.exec();
}

// Pages that no other process shares.
long ownMemory() {
  std::ifstream file("/proc/self/smaps_rollup");
  for (std::string word; file >> word;) {
    long kibibytes = 0;
    if (word == "Private_Dirty:" && file >> kibibytes) return kibibytes;
  }
  return -1;
}

double changePrinters(QComboBox& printers, char* queues[]) {
  std::array<double, kChanges> costs{};
  for (int change = 0; change < kChanges; ++change) {
    const double start = processorTime();
    printers.setCurrentIndex(printers.findText(queues[(change + 1) % 2]));
    settle();
    costs[static_cast<std::size_t>(change)] = processorTime() - start;
  }
  std::sort(costs.begin(), costs.end());
  return costs[kChanges / 2];
}

}  // namespace

int main(int count, char* arguments[]) {
  const QApplication application(count, arguments);
  if (count != 3) {
    std::fputs("usage: qt-extension-bench QUEUE OTHER_QUEUE\n", stderr);
    return 2;
  }
  QElapsedTimer time;
  time.start();
  const double start = processorTime();
  QPrinter printer;
  printer.setPrinterName(arguments[1]);
  QPrintDialog dialog(&printer);
  dialog.show();
  dialog.repaint();
  std::printf("drawn %g\n", static_cast<double>(time.nsecsElapsed()) / 1e6);
  settle();
  std::printf("first %g\n", processorTime() - start);
  std::printf("memory %ld\n", ownMemory());
  auto* printers = dialog.findChild<QComboBox*>("printers");
  if (printers == nullptr) return 1;
  std::printf("change %g\n", changePrinters(*printers, arguments + 1));
  return 0;
}
