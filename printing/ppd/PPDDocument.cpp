// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/PPDDocument.h"

#include <cerrno>
#include <sstream>
#include <string_view>
#include <utility>

#include <glib.h>

#include "Publishing/ppd/PPDFields.h"
#include "base/MemoryFile.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/ppd/FetchedPPD.h"

namespace publishing {

void CupsDeleter::operator()(ppd_file_t* ppd) const noexcept {
  ppdClose(ppd);
}

namespace {

// --- opening ---

// What libcups said of the last PPD on this thread, with the line if it knows one.
std::string lastFault() {
  int line = 0;
  const ppd_status_t status = ppdLastError(&line);
  if (status == PPD_FILE_OPEN_ERROR) return g_strerror(errno);
  const char* reason = ppdErrorString(status);
  return line > 0 ? translated("line %d: %s", line, reason) : std::string(reason);
}

// The same file read by the letter of the PPD format. Relaxed reading accepts a file that was cut
// off and silently leaves out what is missing; the faults skipped here lose nothing.
std::vector<std::string> faultsOf(const std::string& path, const std::string& name) {
  ppdSetConformance(PPD_CONFORM_STRICT);
  const PPDHandle strict(ppdOpenFile(path.c_str()));
  ppdSetConformance(PPD_CONFORM_RELAXED);
  if (strict) return {};
  const std::string fault = lastFault();
  const ppd_status_t status = ppdLastError(nullptr);
  if (status == PPD_ILLEGAL_WHITESPACE || status == PPD_LINE_TOO_LONG) return {};
  return {
      translated("The PPD of %s may be damaged or truncated (%s): choices may be missing. "
                 "Reinstall the printer's PPD.",
                 shown(name), fault)};
}

PPDHandle opened(const std::string& path, const std::string& name) {
  ppdSetConformance(PPD_CONFORM_RELAXED);
  errno = 0;
  PPDHandle ppd(ppdOpenFile(path.c_str()));
  if (!ppd) {
    const std::string fault = lastFault();
    throw PrintError::trouble(translated(
        "The PPD of %s cannot be used: %s. Reinstall the printer's PPD or choose another one.",
        shown(name), fault));
  }
  ppdMarkDefaults(ppd.get());
  return ppd;
}

std::string checksumOf(const std::string& path) {
  char* contents = nullptr;
  gsize length = 0;
  if (g_file_get_contents(path.c_str(), &contents, &length, nullptr) == FALSE) return {};
  char* checksum = g_compute_checksum_for_data(G_CHECKSUM_SHA256,
                                               reinterpret_cast<const guchar*>(contents), length);
  std::string text(checksum);
  g_free(checksum);
  g_free(contents);
  return text;
}

// --- programs ---

// A filter line is "TYPE COST PROGRAM" or "TYPE TYPE COST PROGRAM"; types have a slash as well.
bool namesPath(const std::string& filter) {
  std::istringstream words(filter);
  std::string word;
  bool afterCost = false;
  while (words >> word) {
    if (afterCost && word.find('/') != std::string::npos) return true;
    afterCost = afterCost || word.find_first_not_of("0123456789") == std::string::npos;
  }
  return false;
}

// --- options ---

ppd_option_t* findOption(ppd_file_t* ppd, const std::string& keyword) {
  ppd_option_t* option = ppdFindOption(ppd, keyword.c_str());
  return option != nullptr && boundedView(option->keyword) == keyword ? option : nullptr;
}

const ppd_choice_t* findChoice(const ppd_option_t* option, const std::string& keyword) {
  for (const ppd_choice_t& choice : choicesOf(option)) {
    if (boundedView(choice.choice) == keyword) return &choice;
  }
  return nullptr;
}

}  // namespace

PPDDocument PPDDocument::openFile(const std::string& path) {
  PPDHandle ppd = opened(path, path);
  return {std::move(ppd), faultsOf(path, path), checksumOf(path)};
}

PPDDocument PPDDocument::openText(const std::string& text, const std::string& name) {
  const MemoryFile file(text);
  PPDHandle ppd = opened(file.path(), name);
  return {std::move(ppd), faultsOf(file.path(), name), checksumOf(file.path())};
}

std::optional<PPDDocument> PPDDocument::fetch(http_t* http, const std::string& queue) {
  const FetchedPPD file(http, queue);
  if (!file.exists()) return std::nullopt;
  PPDHandle ppd = opened(file.path(), queue);
  return PPDDocument(std::move(ppd), faultsOf(file.path(), queue), checksumOf(file.path()));
}

bool PPDDocument::isStillThatOf(http_t* http, const std::string& queue) const {
  const FetchedPPD file(http, queue);
  return file.exists() && checksumOf(file.path()) == checksum_;
}

std::optional<std::string> PPDDocument::foreignProgram() const {
  for (int i = 0; i < ppd_->num_filters; ++i) {
    if (namesPath(ppd_->filters[i])) return std::string("cupsFilter ") + ppd_->filters[i];
  }
  for (int i = 0; i < ppd_->num_attrs; ++i) {
    const ppd_attr_t& attribute = *ppd_->attrs[i];
    const std::string name(boundedView(attribute.name));
    const std::string value = attribute.value != nullptr ? attribute.value : "";
    if (name.starts_with("FoomaticRIP")) return name;
    if ((name == "cupsFilter2" || name == "cupsPreFilter") && namesPath(value)) {
      return name + " " + value;
    }
  }
  return std::nullopt;
}

bool PPDDocument::hasSheetFilter() const {
  for (int i = 0; i < ppd_->num_filters; ++i) {
    if (std::string_view(ppd_->filters[i]).starts_with(kSheetType)) return true;
  }
  return false;
}

// A filter's line has a type, a cost and the program behind the type, "-" for none.
bool PPDDocument::takesPostScript() const {
  if (ppdFindAttr(ppd_.get(), "cupsFilter2", nullptr) != nullptr) return false;
  if (ppd_->num_filters == 0) return true;
  for (int i = 0; i < ppd_->num_filters; ++i) {
    const std::string_view line(ppd_->filters[i]);
    const bool isPostScript = line.starts_with("application/vnd.cups-postscript") ||
                              line.starts_with("application/postscript");
    if (isPostScript && line.ends_with(" -")) return true;
  }
  return false;
}

void PPDDocument::markDefaults() {
  ppdMarkDefaults(ppd_.get());
}

void PPDDocument::mark(const std::map<std::string, std::string>& options) {
  const CupsOptions list(options);
  cupsMarkOptions(ppd_.get(), list.count(), list.get());
}

bool PPDDocument::mark(const std::string& option, const std::string& choice) {
  if (findChoice(findOption(ppd_.get(), option), choice) == nullptr) return false;
  ppdMarkOption(ppd_.get(), option.c_str(), choice.c_str());
  return true;
}

std::optional<Sides> PPDDocument::markedSides() const {
  return markedSidesOf(ppd_.get());
}

std::vector<PPDChoice> PPDDocument::choices(const std::string& option) const {
  std::vector<PPDChoice> list;
  const ppd_option_t* found = ppdFindOption(ppd_.get(), option.c_str());
  for (const ppd_choice_t& choice : choicesOf(found))
    list.push_back(described(*found, choice));
  return list;
}

std::optional<PPDChoice> PPDDocument::choice(const std::string& option,
                                             const std::string& choice) const {
  const ppd_option_t* found = findOption(ppd_.get(), option);
  const ppd_choice_t* chosen = findChoice(found, choice);
  if (chosen == nullptr) return std::nullopt;
  return described(*found, *chosen);
}

std::vector<Conflict> PPDDocument::conflicts() const {
  return conflictsIn(ppd_.get());
}

}  // namespace publishing
