// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/PPDDocument.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>

#include <glib.h>
#include <unistd.h>

#include "Publishing/PublishingKeys.h"
#include "Publishing/ppd/PPDFields.h"
#include "base/Translation.h"
#include "printing/PrintError.h"

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

// The queue's PPD: a copy of the server's file or a link to it, which is ours to remove.
class FetchedPPD {
 public:
  FetchedPPD(http_t* http, const std::string& queue) {
    time_t modified = 0;
    const http_status_t status =
        cupsGetPPD3(http, queue.c_str(), &modified, path_.data(), path_.size());
    if (status == HTTP_STATUS_OK || status == HTTP_STATUS_NOT_FOUND) return;
    throw PrintError::trouble(
        translated("The print server did not provide the PPD of the queue %s: %s.", queue,
                   cupsLastErrorString()));
  }
  ~FetchedPPD() {
    if (exists()) unlink(path_.data());
  }
  FetchedPPD(const FetchedPPD&) = delete;
  FetchedPPD& operator=(const FetchedPPD&) = delete;

  [[nodiscard]] bool exists() const { return path_.front() != '\0'; }
  [[nodiscard]] std::string path() const { return path_.data(); }

 private:
  std::array<char, 1024> path_{};
};

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

// --- texts ---

std::string textOf(std::string_view text, std::string_view keyword) {
  return shown(std::string(text.empty() ? keyword : text));
}

PPDChoice described(const ppd_option_t& option, const ppd_choice_t& choice) {
  const std::string_view keyword = boundedView(option.keyword);
  const std::string_view chosen = boundedView(choice.choice);
  return {std::string(keyword), textOf(boundedView(option.text), keyword), std::string(chosen),
          textOf(boundedView(choice.text), chosen), choice.marked != 0};
}

bool equal(const char* left, const char* right) {
  return g_ascii_strcasecmp(left, right) == 0;
}

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

// --- conflicts ---

struct Side {
  const ppd_option_t* option;
  const ppd_choice_t* choice;  // null: every choice that switches something on

  [[nodiscard]] std::pair<std::string_view, std::string_view> keywords() const {
    return {boundedView(option->keyword), choice == nullptr ? "" : boundedView(choice->choice)};
  }
  bool operator<(const Side& other) const { return keywords() < other.keywords(); }
};

// A set, so that the same constraint written in the other direction is the same.
using Constraint = std::set<Side>;

// Adds a side; false when the PPD does not know it, which makes the constraint void.
bool addSide(ppd_file_t* ppd, std::string option, std::string choice, Constraint& constraint) {
  if (option.starts_with("Custom") && equal(choice.c_str(), "True")) {
    option.erase(0, std::strlen("Custom"));
    choice = "Custom";
  }
  ppd_option_t* found = ppdFindOption(ppd, option.c_str());
  if (found == nullptr) return false;
  const ppd_choice_t* chosen = choice.empty() ? nullptr : ppdFindChoice(found, choice.c_str());
  if (chosen == nullptr && !choice.empty()) return false;
  constraint.insert({found, chosen});
  return true;
}

// "*Option Choice *Option Choice ...", the choices left out where any is meant.
bool addSides(ppd_file_t* ppd, const char* text, Constraint& constraint) {
  std::istringstream words(text);
  std::string word;
  std::string option;
  std::string choice;
  while (words >> word) {
    if (!word.starts_with('*')) {
      choice = word;
      continue;
    }
    if (!option.empty() && !addSide(ppd, option, choice, constraint)) return false;
    option = word.substr(1);
    choice.clear();
  }
  return !option.empty() && addSide(ppd, option, choice, constraint);
}

// One direction of a constraint is enough; both make one.
std::set<Constraint> constraintsOf(ppd_file_t* ppd) {
  std::set<Constraint> constraints;
  for (int i = 0; i < ppd->num_consts; ++i) {
    const ppd_const_t& pair = ppd->consts[i];
    Constraint constraint;
    if (addSide(ppd, std::string(boundedView(pair.option1)), std::string(boundedView(pair.choice1)),
                constraint) &&
        addSide(ppd, std::string(boundedView(pair.option2)), std::string(boundedView(pair.choice2)),
                constraint)) {
      constraints.insert(constraint);
    }
  }
  for (const ppd_attr_t* attribute = ppdFindAttr(ppd, "cupsUIConstraints", nullptr);
       attribute != nullptr; attribute = ppdFindNextAttr(ppd, "cupsUIConstraints", nullptr)) {
    Constraint constraint;
    if (attribute->value != nullptr && addSides(ppd, attribute->value, constraint)) {
      constraints.insert(constraint);
    }
  }
  return constraints;
}

// The choice through which the side is in force; null when it is not. Page sizes are judged by the
// size in force: only one of PageSize and PageRegion is marked at a time.
const ppd_choice_t* choiceInForce(ppd_file_t* ppd, const Side& side) {
  const char* keyword = side.option->keyword;
  if (side.choice != nullptr && (equal(keyword, "PageSize") || equal(keyword, "PageRegion"))) {
    const ppd_size_t* size = ppdPageSize(ppd, nullptr);
    return size != nullptr && equal(size->name, side.choice->choice) ? side.choice : nullptr;
  }
  if (side.choice != nullptr) return side.choice->marked != 0 ? side.choice : nullptr;
  const ppd_choice_t* marked = ppdFindMarkedChoice(ppd, keyword);
  if (marked == nullptr || equal(marked->choice, "None") || equal(marked->choice, "Off") ||
      equal(marked->choice, "False"))
    return nullptr;
  return marked;
}

bool isPanelsChoice(const PPDChoice& choice) {
  return choice.option == cCoverMediaType || choice.option == cPageMediaType;
}

}  // namespace

std::string Conflict::text() const {
  std::string others;
  std::string keywords;
  for (const PPDChoice& choice : choices) {
    if (&choice != &choices.front()) {
      others += (others.empty() ? "" : ", ") + choice.optionText + ": " + choice.choiceText;
    }
    keywords += (keywords.empty() ? "" : ", ") + shown(choice.option + "=" + choice.choice);
  }
  return translated("%s: %s. Conflicts with %s (%s)", choices.front().optionText,
                    choices.front().choiceText, others, keywords);
}

PPDDocument PPDDocument::openFile(const std::string& path) {
  PPDHandle ppd = opened(path, path);
  return {std::move(ppd), faultsOf(path, path), checksumOf(path)};
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
  std::vector<Conflict> conflicts;
  for (const Constraint& constraint : constraintsOf(ppd_.get())) {
    Conflict conflict;
    for (const Side& side : constraint) {
      const ppd_choice_t* choice = choiceInForce(ppd_.get(), side);
      if (choice == nullptr) break;
      conflict.choices.push_back(described(*side.option, *choice));
    }
    if (conflict.choices.size() != constraint.size()) continue;
    std::stable_partition(conflict.choices.begin(), conflict.choices.end(), isPanelsChoice);
    conflicts.push_back(std::move(conflict));
  }
  return conflicts;
}

}  // namespace publishing
