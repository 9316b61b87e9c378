// SPDX-License-Identifier: Apache-2.0
#include "printing/JobTicket.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include <glib.h>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/OptionEncoding.h"
#include "printing/PrintError.h"

namespace publishing {
namespace {

constexpr std::size_t kLongestJobOption = 255;  // bytes of an IPP name, and of what filters take
constexpr std::size_t kLongestPageList = 2048;  // arrives whole, and the panel accepts such lists
constexpr const char* kSides = "sides";
constexpr const char* kNumberUp = "number-up";
constexpr const char* kCopies = "copies";
constexpr const char* kCollate = "collate";
constexpr const char* kTrue = "true";

constexpr std::array<std::pair<Sides, const char*>, 3> kSidesKeywords = {
    {{Sides::OneSided, "one-sided"},
     {Sides::TwoSidedLongEdge, "two-sided-long-edge"},
     {Sides::TwoSidedShortEdge, "two-sided-short-edge"}}};

bool equalsIgnoringCase(const std::string& text, const char* word) {
  return g_ascii_strcasecmp(text.c_str(), word) == 0;
}

bool isOptionName(const std::string& name) {
  return !name.empty() && name.size() <= kLongestJobOption && g_ascii_isalpha(name.front()) &&
         std::all_of(name.begin(), name.end(), [](char character) {
           return g_ascii_isalnum(character) ||
                  std::string_view("._-").find(character) != std::string_view::npos;
         });
}

bool hasControlCharacter(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](char byte) { return g_ascii_iscntrl(byte); });
}

// Why CUPS would not hand the value to the filters as it stands; null when it would.
const char* faultOfValue(const std::string& name, const std::string& value) {
  if (!g_utf8_validate(value.data(), static_cast<gssize>(value.size()), nullptr))
    return N_("it is not valid UTF-8 text");
  if (hasControlCharacter(value))
    return N_("it contains a line break or another control character");
  if (name == kPageinsertNums) {
    if (value.size() > kLongestPageList) return N_("it is longer than 2048 bytes");
  } else if (value.size() > kLongestJobOption) {
    return N_("it is longer than 255 bytes");
  }
  if (value.starts_with('{')) return N_("CUPS reads a leading \"{\" as a collection of options");
  if (equalsIgnoringCase(value, "true") || equalsIgnoringCase(value, "false"))
    return N_("CUPS turns the words \"true\" and \"false\" into a switch");
  return nullptr;
}

void checkOptionName(const std::string& name) {
  if (isOptionName(name)) return;
  throw PrintError::refused(
      translated("\"%s\" cannot be the name of a job option: use at most 255 letters, digits, "
                 "dots, hyphens and underscores, beginning with a letter.",
                 shown(name)));
}

// The value as the filters get it; throws when they do not get the option.
std::string checkArrives(const std::string& name, const std::string& value) {
  auto arriving = valueForFilters(name, value);
  if (!arriving) {
    throw PrintError::refused(
        translated("The option %s with the value \"%s\" does not reach the printer. "
                   "Choose another value or leave it out.",
                   name, shown(value)));
  }
  return *std::move(arriving);
}

}  // namespace

const char* keywordOf(Sides sides) {
  return std::find_if(kSidesKeywords.begin(), kSidesKeywords.end(),
                      [sides](const auto& entry) { return entry.first == sides; })
      ->second;
}

std::optional<Sides> sidesFromKeyword(const std::string& keyword) {
  for (const auto& [sides, word] : kSidesKeywords) {
    if (keyword == word) return sides;
  }
  return std::nullopt;
}

std::optional<std::string> JobTicket::getValue(const std::string& key) const {
  const auto entry = values_.find(key);
  if (entry == values_.end()) return std::nullopt;
  return entry->second;
}

void JobTicket::setValue(const std::string& key, const std::optional<std::string>& value) {
  switches_.erase(key);
  if (value) {
    values_.insert_or_assign(key, *value);
  } else {
    values_.erase(key);
  }
}

std::optional<JobTicket::Options> JobTicket::copyAsDictionary() const {
  return values_;
}

std::optional<std::int32_t> JobTicket::getDuplex() const {
  const auto sides = sidesFromKeyword(getValue(kSides).value_or(keywordOf(Sides::OneSided)));
  if (!sides) return std::nullopt;
  return static_cast<std::int32_t>(*sides);
}

void JobTicket::setSwitch(const std::string& name, bool on) {
  setValue(name, on ? "true" : "false");
  switches_.insert(name);
}

void JobTicket::setSides(Sides sides) {
  setValue(kSides, keywordOf(sides));
}

bool JobTicket::isLayout(int pages) {
  static constexpr std::array kLayouts = {1, 2, 4, 6, 9, 16};
  return std::find(kLayouts.begin(), kLayouts.end(), pages) != kLayouts.end();
}

void JobTicket::setNumberUp(int pages) {
  if (!isLayout(pages)) {
    throw PrintError::usage(
        translated("%d pages cannot be put on one side of a sheet: choose 1, 2, 4, 6, "
                   "9 or 16.",
                   pages));
  }
  setValue(kNumberUp, std::to_string(pages));
  setValue(kNup, pages > 1 ? std::optional<std::string>("1") : std::nullopt);
}

void JobTicket::setBooklet(bool booklet) {
  if (booklet) setValue(kNup, "1");
}

void JobTicket::setReverse(bool reverse) {
  setValue(kOutputOrder, reverse ? "Reverse" : "Normal");
}

void JobTicket::setCopies(int copies) {
  if (copies < 1) {
    throw PrintError::usage(translated("%d copies cannot be printed: ask for 1 or more.", copies));
  }
  setValue(kCopies, std::to_string(copies));
  if (copies > 1 && findJobOption(values_, kCollate) == values_.end()) setSwitch(kCollate, true);
}

JobTicket::Options JobTicket::jobOptions() const {
  Options options;
  for (const auto& [name, value] : values_) {
    if (name.starts_with("com.apple.")) continue;
    if (switches_.contains(name)) {
      checkSwitch(name);
    } else {
      checkJobOption(name, value);
    }
    if (const auto same = findJobOption(options, name); same != options.end()) {
      throw PrintError::refused(
          translated("%s and %s are the same option to CUPS. Give it once.", same->first, name));
    }
    options.emplace(name, value);
  }
  return options;
}

JobTicket::Options::const_iterator findJobOption(const JobTicket::Options& options,
                                                 const std::string& name) {
  return std::find_if(options.begin(), options.end(), [&name](const auto& option) {
    return equalsIgnoringCase(option.first, name.c_str());
  });
}

void checkSwitch(const std::string& name) {
  checkOptionName(name);
  checkArrives(name, kTrue);
}

void checkJobOption(const std::string& name, const std::string& value) {
  checkOptionName(name);
  if (const char* fault = faultOfValue(name, value)) {
    throw PrintError::refused(
        translated("The value \"%s\" of the option %s cannot be sent to the printer: "
                   "%s. Choose another value.",
                   shown(value), name, translatedFormat(fault)));
  }
  if (name == kPageinsertNums) return;  // as a value of that length CUPS's own check refuses it
  const std::string arriving = checkArrives(name, value);
  if (arriving != value) {
    throw PrintError::refused(
        translated("CUPS would change the value \"%s\" of the option %s to \"%s\". "
                   "Choose another value.",
                   shown(value), name, shown(arriving)));
  }
}

}  // namespace publishing
