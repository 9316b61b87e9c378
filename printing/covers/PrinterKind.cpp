// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/PrinterKind.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/covers/FoomaticDriver.h"
#include "printing/covers/TrayCode.h"

namespace publishing {
namespace {

using Kind = PrinterKind;

// Kinds without a reason can have covers and inserts. A %s in a reason is the driver's program or
// device.
constexpr struct {
  Kind kind;
  const char* name;
  const char* program;
  const char* reason;
} kKinds[] = {
    {Kind::PostScript, "postscript", "-", nullptr},
    {Kind::FoomaticPostScript, "foomatic-postscript", "foomatic-rip", nullptr},
    {Kind::FoomaticGhostscript, "foomatic-ghostscript", "foomatic-rip", nullptr},
    {Kind::PageRaster, "page-raster", nullptr,
     N_("Its driver, %s, gets raster pages; covers are not made for those yet.")},
    {Kind::OneMedium, "one-medium", nullptr,
     N_("Its driver, %s, takes one paper for a whole job.")},
    {Kind::Device, "device", nullptr,
     N_("Its driver is Ghostscript's device %s, which is not known to change the tray within a "
        "job.")},
    {Kind::PDF, "pdf", nullptr, N_("It takes PDF, in which nothing changes the paper.")},
    {Kind::Driverless, "driverless", nullptr,
     N_("It is driven without a driver of its own, and the print server does not hand on which "
        "page is for which paper.")},
    {Kind::Unknown, "unknown", nullptr,
     N_("Its PPD names the filter %s, which is not known to change the paper within a job.")},
};

const auto& rowOf(Kind kind) {
  return *std::find_if(std::begin(kKinds), std::end(kKinds),
                       [kind](const auto& row) { return row.kind == kind; });
}

// What the name says of the kind: of filters, and of Ghostscript's devices.
constexpr struct {
  std::string_view name;
  Kind kind;
} kDrivers[] = {
    {"rastertohp", Kind::PageRaster},
    {"rastertobrlaser", Kind::PageRaster},
    {"hpcups", Kind::OneMedium},
    {"ijs", Kind::OneMedium},
    {"hl1250", Kind::OneMedium},
    {"ljet2p", Kind::FoomaticGhostscript},
    {"ljet3", Kind::FoomaticGhostscript},
    {"ljet3d", Kind::FoomaticGhostscript},
    {"ljet4", Kind::FoomaticGhostscript},
    {"ljet4d", Kind::FoomaticGhostscript},
    {"laserjet", Kind::FoomaticGhostscript},
    {"ljetplus", Kind::FoomaticGhostscript},
    {"pxlmono", Kind::FoomaticGhostscript},
    {"pxlcolor", Kind::FoomaticGhostscript},
    {"pcl3", Kind::FoomaticGhostscript},
};

Kind kindOfDriver(std::string_view name, Kind otherwise) {
  const auto* row = std::find_if(std::begin(kDrivers), std::end(kDrivers),
                                 [&](const auto& driver) { return driver.name == name; });
  return row == std::end(kDrivers) ? otherwise : row->kind;
}

PrinterVerdict verdict(Kind kind, const std::string& driver = {}) {
  const auto& row = rowOf(kind);
  PrinterVerdict result;
  result.kind = kind;
  result.driver = shown(driver);
  if (row.program != nullptr) result.program = row.program;
  if (row.reason != nullptr) result.reason = translated(row.reason, result.driver);
  return result;
}

PrinterVerdict refused(Kind kind, const std::string& reason) {
  PrinterVerdict result = verdict(kind);
  result.reason = reason;
  return result;
}

// --- printers that take PostScript ---

PrinterVerdict noChoice(Kind kind) {
  return refused(kind, translated("Its PPD has no choice of trays or paper types."));
}

PrinterVerdict chosenBeforeTheJob(Kind kind) {
  return refused(kind, translated("Its tray is chosen before the job begins, not page by page."));
}

// Trays and types have PostScript code in the PPD.
PrinterVerdict ofPostScript(Kind kind, const PPDMedia& media, const FoomaticDriver& driver) {
  if (media.trays.beforeJob || driver.styleOf(cInputSlot)) return chosenBeforeTheJob(kind);
  PrinterVerdict result = verdict(kind);
  result.types = !media.types.beforeJob && !driver.styleOf(kTypeOption) && media.types.switches();
  return result.types || media.trays.switches() ? result : noChoice(kind);
}

// --- printers whose pages Ghostscript makes ---

// Nothing when all devices can switch trays.
std::optional<PrinterVerdict> verdictOnDevices(const std::set<std::string>& devices) {
  if (devices.empty()) return verdict(Kind::Device, translated("(unnamed)"));
  for (const std::string& device : devices) {
    const Kind kind = kindOfDriver(device, Kind::Device);
    if (kind != Kind::FoomaticGhostscript) return verdict(kind, device);
  }
  return std::nullopt;
}

constexpr const char* kOneSided = "<</Duplex false>>setpagedevice";

// Ghostscript's devices ljet3d and ljet4d print on both sides unless they are told otherwise, which
// these drivers do not. They would take the page after a cover for its back, on the cover's paper.
bool printsOnBothSides(const FoomaticDriver& driver) {
  const auto& devices = driver.devices();
  return driver.setting("Duplex", "None") == "" &&
         (devices.contains("ljet3d") || devices.contains("ljet4d"));
}

PrinterVerdict ofGhostscript(const PPDMedia& media, const FoomaticDriver& driver) {
  const Kind kind = Kind::FoomaticGhostscript;
  if (auto result = verdictOnDevices(driver.devices())) return *result;
  if (media.trays.choices.empty()) return noChoice(kind);
  if (driver.styleOf(cInputSlot).value_or("") != "CmdLine") return chosenBeforeTheJob(kind);
  // Ghostscript then looks for the tray among papers that it makes up itself, and finds none.
  if (driver.commandLine().find("-dNOMEDIAATTRS") == std::string::npos) {
    return refused(kind,
                   translated("Its driver runs Ghostscript without %s, and so no page can name its "
                              "tray.",
                              "-dNOMEDIAATTRS"));
  }
  PrinterVerdict result = verdict(kind);
  std::set<std::string> different;
  for (const MediaChoice& tray : media.trays.choices) {
    const auto code = trayCode(driver, tray.keyword);
    if (!code) {
      return refused(kind, translated("How its driver chooses the tray %s is not known.",
                                      shown(std::string(tray.keyword))));
    }
    different.insert(*code);
    result.codes.emplace_back(std::string(cInputSlot) + "." + std::string(tray.keyword), *code);
  }
  if (different.size() < 2) return noChoice(kind);
  result.codes.emplace_back(std::string("Release.") + cInputSlot, codeOfDefaultTray());
  result.codes.emplace_back(std::string("Release.") + kTypeOption, "");
  if (printsOnBothSides(driver)) result.codes.emplace_back("Duplex.None", kOneSided);
  return result;
}

PrinterVerdict ofFoomatic(const std::vector<PPDStatement>& statements, const PPDMedia& media) {
  // What passes the PostScript on as it is, but for lines around it.
  static const std::set<std::string> kPassOn = {"cat", "printf", "sed"};
  static const std::set<std::string> kAroundGhostscript = {"cat", "gs", "perl", "printf", "sed"};
  const FoomaticDriver driver(statements);
  const auto runsOnly = [&](const std::set<std::string>& known) {
    return std::includes(known.begin(), known.end(), driver.programs().begin(),
                         driver.programs().end());
  };
  if (runsOnly(kPassOn)) return ofPostScript(Kind::FoomaticPostScript, media, driver);
  if (runsOnly(kAroundGhostscript)) return ofGhostscript(media, driver);
  for (const std::string& device : driver.devices()) {
    if (kindOfDriver(device, Kind::Unknown) == Kind::OneMedium)
      return verdict(Kind::OneMedium, device);
  }
  return verdict(Kind::Unknown, "foomatic-rip: " + *driver.programs().rbegin());
}

// --- filters ---

bool isOneOf(std::string_view type, std::initializer_list<std::string_view> types) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

bool takesPostScript(const FilterLine& line) {
  return line.program == "-" && line.destination.empty() &&
         isOneOf(line.source, {"application/vnd.cups-postscript", "application/postscript"});
}

bool takesPages(const FilterLine& line) {
  const std::string_view type = line.destination.empty() ? line.source : line.destination;
  return isOneOf(type, {"application/pdf", "application/vnd.cups-pdf", "image/urf",
                        "image/pwg-raster", "application/PCLm"});
}

PrinterVerdict verdictOnDriver(const std::vector<PPDStatement>& statements, const PPDMedia& media) {
  for (const PPDStatement& statement : statements) {
    if (statement.keyword == "cupsPreFilter")
      return verdict(Kind::Unknown, std::string(statement.value));
  }
  std::vector<FilterLine> lines = filterLinesOf(statements);
  std::erase_if(lines, [](const FilterLine& line) { return line.isForCommands(); });
  // CUPS looks at lines of the second form alone when there are any.
  if (std::any_of(lines.begin(), lines.end(), [](const auto& line) { return line.isSecondForm(); }))
    std::erase_if(lines, [](const FilterLine& line) { return !line.isSecondForm(); });

  const auto all = [&](auto test) { return std::all_of(lines.begin(), lines.end(), test); };
  const auto any = [&](auto test) { return std::any_of(lines.begin(), lines.end(), test); };
  if (all(takesPostScript)) {
    return ofPostScript(Kind::PostScript, media, FoomaticDriver(statements));
  }
  if (all([](const FilterLine& line) { return line.program == "foomatic-rip"; }))
    return ofFoomatic(statements, media);
  if (any([](const FilterLine& line) { return line.program == "-" && takesPages(line); }))
    return verdict(lines.front().isSecondForm() ? Kind::Driverless : Kind::PDF);
  const FilterLine& line = *std::find_if_not(lines.begin(), lines.end(), takesPostScript);
  const std::string_view name = line.program == "-" ? line.source : line.program;
  return verdict(kindOfDriver(name, Kind::Unknown), std::string(name));
}

}  // namespace

const char* nameOf(PrinterKind kind) {
  return rowOf(kind).name;
}

std::vector<FilterLine> filterLinesOf(const std::vector<PPDStatement>& statements) {
  std::vector<FilterLine> lines;
  for (const PPDStatement& statement : statements) {
    const bool second = statement.keyword == "cupsFilter2";
    if (!second && statement.keyword != "cupsFilter") continue;
    // "TYPE COST PROGRAM" or "TYPE TYPE COST PROGRAM".
    auto words = wordsOf(statement.value);
    words.resize(std::max<std::size_t>(words.size(), 4));
    lines.push_back({&statement, words[0], second ? words[1] : "", words[second ? 3 : 2]});
  }
  return lines;
}

PrinterVerdict verdictOn(const std::vector<PPDStatement>& statements, const PPDMedia& media) {
  PrinterVerdict result = verdictOnDriver(statements, media);
  // Where there is nothing to choose, the driver is not what is in the way.
  if (!result.reason.empty() && media.trays.choices.size() < 2 && media.types.choices.size() < 2)
    return noChoice(result.kind);
  return result;
}

}  // namespace publishing
