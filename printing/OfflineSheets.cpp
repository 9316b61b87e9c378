// SPDX-License-Identifier: Apache-2.0
#include "printing/OfflineSheets.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <glib.h>
#include <unistd.h>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/OptionEncoding.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProgram = "publishingtops";
constexpr const char* kPackage = "publishing-printer";

// Beside this program, as in a build folder, or among CUPS's filters. Empty when it is in neither.
std::string filterPath() {
  std::error_code failed;
  const fs::path self = fs::read_symlink("/proc/self/exe", failed);
  const char* programs = std::getenv("CUPS_SERVERBIN");
  const fs::path cups = programs != nullptr && *programs != '\0' ? programs : "/usr/lib/cups";
  for (const fs::path& folder : {self.parent_path(), cups / "filter"}) {
    std::string path = folder / kProgram;
    if (access(path.c_str(), X_OK) == 0) return path;
  }
  return {};
}

bool hasSheets(const JobTicket::Options& options) {
  const auto isOn = [&options](const char* key) {
    const auto found = options.find(key);
    return found != options.end() && found->second == "On";
  };
  return isOn(kCoverModeState) || isOn(kPageinsertState);
}

}  // namespace

std::vector<std::string> sheetFilterCommand(const Printer& printer,
                                            const JobTicket::Options& options,
                                            const Document& document, const std::string& title) {
  const PPDDocument& ppd = *printer.ppd();
  if (!ppd.hasSheetFilter() && !(hasSheets(options) && ppd.takesPostScript())) return {};
  const std::string program = filterPath();
  if (program.empty()) {
    if (!ppd.hasSheetFilter()) return {};
    throw PrintError::trouble(
        translated("The PPD %s asks for the filter %s: install the package %s.",
                   shown(printer.name()), kProgram, kPackage));
  }
  std::string copies = "1";
  std::string words;
  for (const auto& [name, value] : options) {
    if (name == "copies") {
      copies = value;
    } else {
      words += (words.empty() ? "" : " ") + quotedOption(name, value);
    }
  }
  return {"/usr/bin/env",
          "PPD=" + fs::absolute(printer.name()).string(),
          std::string("CONTENT_TYPE=") + document.format(),
          program,
          "1",
          g_get_user_name(),
          title,
          copies,
          words,
          document.path()};
}

std::string noteOnDriver(const Printer& queue) {
  if (queue.ppd() != nullptr && queue.ppd()->hasSheetFilter()) return {};
  return translated(
      "The covers and inserts are left to the driver of %s. If it makes none, an "
      "administrator can add them: publishing printer enable -d %s",
      queue.name(), queue.name());
}

std::string noteOnSheets(const Printer& printer, const JobTicket::Options& options) {
  if (!hasSheets(options)) return {};
  if (printer.isQueue()) return noteOnDriver(printer);
  const bool isFiltered =
      printer.ppd() != nullptr && (printer.ppd()->hasSheetFilter() ||
                                   (printer.ppd()->takesPostScript() && !filterPath().empty()));
  if (isFiltered) return {};
  return translated(
      "The covers and inserts are left to the printer's own driver. With the package "
      "%s they are made here.",
      kPackage);
}

}  // namespace publishing
