// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PrinterArgument.h"

#include "base/Translation.h"
#include "programs/commands/Arguments.h"
#include "programs/terminal/Terminal.h"

namespace publishing {
namespace {

Printer openPrinter(const PrinterArgument& printer) {
  if (printer.ppd) return Printer::openPPD(*printer.ppd);
  return printer.queue ? Printer::openQueue(*printer.queue) : Printer::openDefaultQueue();
}

}  // namespace

Printer PrinterArgument::open() const {
  Printer printer = openPrinter(*this);
  for (const std::string& warning : printer.warnings())
    warn(warning);
  return printer;
}

void addPrinterArgument(CLI::App& command, PrinterArgument& printer) {
  CLI::Option* queue = addText(command, "-d,--printer", printer.queue,
                               translated("Print queue (default: your default queue)"));
  queue->type_name("QUEUE");
  addText(command, "--ppd", printer.ppd, translated("PPD file to use instead of a queue"))
      ->type_name("FILE")
      ->excludes(queue);
}

}  // namespace publishing
