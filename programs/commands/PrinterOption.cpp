#include "programs/commands/PrinterOption.h"

#include <iostream>

#include "base/Translation.h"

namespace publishing {
namespace {

Printer openPrinter(const PrinterOption& option) {
  if (!option.ppd.empty()) return Printer::openPPD(option.ppd);
  return option.queue.empty() ? Printer::openDefaultQueue() : Printer::openQueue(option.queue);
}

}  // namespace

Printer PrinterOption::open() const {
  Printer printer = openPrinter(*this);
  for (const std::string& warning : printer.warnings()) {
    std::cerr << "publishing: " << warning << '\n';
  }
  return printer;
}

void addPrinterOption(CLI::App& command, PrinterOption& option) {
  CLI::Option* queue = command.add_option("-d,--printer", option.queue,
                                          translated("Print queue (default: the user's)"));
  queue->type_name("QUEUE");
  command.add_option("--ppd", option.ppd, translated("PPD file to use instead of a queue"))
      ->type_name("FILE")
      ->excludes(queue);
}

}  // namespace publishing
