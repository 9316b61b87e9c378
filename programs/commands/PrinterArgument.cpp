// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PrinterArgument.h"

#include "base/Translation.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

Printer openPrinter(const PrinterArgument& option) {
  if (!option.ppd.empty()) return Printer::openPPD(option.ppd);
  return option.queue.empty() ? Printer::openDefaultQueue() : Printer::openQueue(option.queue);
}

}  // namespace

Printer PrinterArgument::open() const {
  Printer printer = openPrinter(*this);
  for (const std::string& warning : printer.warnings())
    warn(warning);
  return printer;
}

void addPrinterArgument(CLI::App& command, PrinterArgument& option) {
  CLI::Option* queue = command.add_option("-d,--printer", option.queue,
                                          translated("Print queue (default: your default queue)"));
  queue->type_name("QUEUE");
  command.add_option("--ppd", option.ppd, translated("PPD file to use instead of a queue"))
      ->type_name("FILE")
      ->excludes(queue);
}

}  // namespace publishing
