// SPDX-License-Identifier: Apache-2.0
// How a printer is made to take a page from another tray, as its PPD tells.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "printing/covers/MediaOptions.h"

namespace publishing {

enum class PrinterKind {
  PostScript,           // takes the job's PostScript as it is
  FoomaticPostScript,   // the same, by way of foomatic-rip
  FoomaticGhostscript,  // Ghostscript makes its pages, with a device that switches trays
  PageRaster,           // its driver reads the medium of each page from raster data
  OneMedium,            // one run of its driver has one medium
  Device,               // Ghostscript makes its pages, with a device that does not switch trays
  PDF,                  // takes PDF
  Driverless,           // takes PDF or raster data with IPP attributes
  Unknown,
};

// The kind's name in PPDs and JSON: "foomatic-postscript".
const char* nameOf(PrinterKind kind);

struct PrinterVerdict {
  PrinterKind kind = PrinterKind::Unknown;
  // For the user: why the printer cannot have covers and inserts; empty when it can.
  std::string reason;
  // The filter or Ghostscript device that tells the kind; empty where none does.
  std::string driver;
  // Whether paper types can be switched page by page, as trays can.
  bool types = false;
  // What takes the PostScript with the covers: "-" for the printer itself, or a filter's name.
  std::string program;
  // PostScript code by "InputSlot.Tray1", and by "Release.InputSlot" for what gives a tray back,
  // where the code of the PPD's choices is none; empty for all other printers.
  std::vector<std::pair<std::string, std::string>> codes;
};

// Nothing that the PPD names is run. Throws nothing.
PrinterVerdict verdictOn(const std::vector<PPDStatement>& statements, const PPDMedia& media);

// A "cupsFilter" or "cupsFilter2" statement: what a program makes of which type.
struct FilterLine {
  const PPDStatement* statement;
  std::string_view source;
  std::string_view destination;  // of cupsFilter2, else empty
  std::string_view program;

  [[nodiscard]] bool isForCommands() const { return source == "application/vnd.cups-command"; }
  [[nodiscard]] bool isSecondForm() const { return statement->keyword == "cupsFilter2"; }
};

std::vector<FilterLine> filterLinesOf(const std::vector<PPDStatement>& statements);

}  // namespace publishing
