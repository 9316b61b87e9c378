// SPDX-License-Identifier: Apache-2.0
#include "printing/Remembering.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "base/Translation.h"
#include "printing/PageRanges.h"

namespace publishing {
namespace {

using Values = StoredSettings::Values;

std::string valueOf(const Values& values, const std::string& key) {
  const auto found = values.find(key);
  return found != values.end() ? found->second : std::string();
}

// The index of the remembered medium among the present choices.
std::optional<std::size_t> indexOf(const std::vector<PPDChoice>& choices,
                                   const std::string& keyword, const std::string& text) {
  for (std::size_t index = 0; index < choices.size(); ++index) {
    if (choices[index].choice == keyword) return index;
  }
  for (std::size_t index = 0; index < choices.size() && !text.empty(); ++index) {
    if (choices[index].choiceText == text) return index;
  }
  return std::nullopt;
}

std::string lossOf(const PublishingFeature& feature, const std::string& medium,
                   const std::string& printer, SettingsFrom from) {
  const bool isCover = std::string_view(feature.option) == kCoverMode.option;
  const bool isPreset = from == SettingsFrom::Preset;
  const char* text =
      isCover ? N_("%s is no longer offered for covers by %s; covers are off.")
              : N_("%s is no longer offered for inserted sheets by %s; inserted sheets are off.");
  if (isPreset) {
    text = isCover ? N_("%s is not offered for covers by %s; covers are off.")
                   : N_("%s is not offered for inserted sheets by %s; inserted sheets are off.");
  }
  return translated(text, shown(medium), shown(printer));
}

void forgetMedium(Values& values, const PublishingFeature& feature) {
  values.erase(feature.indexKey);
  values.erase(feature.option);
}

// Of a medium without a keyword only the index is known, which says nothing of a present choice.
void fitMedium(Remembered& fitted, const PublishingFeature& feature, const std::string& text,
               const Printer& printer, SettingsFrom from) {
  Values& values = fitted.values;
  const auto choices =
      printer.ppd() != nullptr ? printer.ppd()->choices(feature.option) : std::vector<PPDChoice>();
  const std::string keyword = valueOf(values, feature.option);
  if (keyword.empty() && !values.contains(feature.indexKey)) return;
  const auto index = indexOf(choices, keyword, text);
  forgetMedium(values, feature);
  if (index) {
    values[feature.indexKey] = std::to_string(*index);
    values[feature.option] = choices[*index].choice;
    return;
  }
  values[feature.stateKey] = kStoredOff;
  const std::string name = !text.empty() ? text : keyword;
  fitted.losses.push_back(lossOf(feature, !name.empty() ? name : translated("The remembered paper"),
                                 printer.name(), from));
}

}  // namespace

Remembered fittedTo(const Printer& printer, Values values, SettingsFrom from) {
  Remembered fitted;
  fitted.values = std::move(values);
  for (const PublishingFeature& feature : kFeatures) {
    const std::string textKey = StoredSettings::mediumTextKey(feature);
    const std::string text = valueOf(fitted.values, textKey);
    fitted.values.erase(textKey);
    if (valueOf(fitted.values, feature.stateKey) != kStoredOn) {
      forgetMedium(fitted.values, feature);
    } else if (printer.ppd() != nullptr || from == SettingsFrom::Preset) {
      fitMedium(fitted, feature, text, printer, from);
    }
  }
  const auto list = fitted.values.find(kPageinsertNums);
  if (list != fitted.values.end()) list->second = asRanges(list->second);
  return fitted;
}

Remembered recall(const StoredSettings& store, const Printer& printer) {
  StoredSettings::Loaded loaded = store.load(printer.name());
  const bool isOff = isSwitchedOff(loaded.values);
  loaded.values.erase(StoredSettings::kRemember);
  if (isOff) loaded.values.clear();
  Remembered fitted = fittedTo(printer, std::move(loaded.values));
  fitted.warnings = std::move(loaded.warnings);
  fitted.isSwitchedOff = isOff;
  return fitted;
}

Values toRemember(const Printer& printer, const JobTicket::Options& settings) {
  Values values;
  const auto take = [&](const char* key) {
    const auto found = settings.find(key);
    if (found != settings.end()) values.insert(*found);
  };
  for (const PublishingFeature& feature : kFeatures) {
    for (const char* key : feature.keys)
      take(key);
    if (valueOf(settings, feature.stateKey) != kStoredOn || printer.ppd() == nullptr) continue;
    take(feature.option);
    const auto medium = printer.ppd()->choice(feature.option, valueOf(settings, feature.option));
    if (medium) values[StoredSettings::mediumTextKey(feature)] = medium->choiceText;
  }
  const auto list = values.find(kPageinsertNums);
  if (list != values.end()) list->second = asRanges(list->second);
  return values;
}

bool isSwitchedOff(const Values& values) {
  return valueOf(values, StoredSettings::kRemember) == kStoredOff;
}

void switchOffRemembering(const StoredSettings& store, const std::string& printer) {
  store.store(printer, {{StoredSettings::kRemember, kStoredOff}});
}

void remember(const StoredSettings& store, const Printer& printer,
              const JobTicket::Options& settings, const std::vector<PublishingFeature>& kept) {
  Values values = toRemember(printer, settings);
  if (!kept.empty()) {
    const Values before = store.load(printer.name()).values;
    for (const PublishingFeature& feature : kept) {
      std::vector<std::string> keys(feature.keys.begin(), feature.keys.end());
      keys.emplace_back(feature.option);
      keys.push_back(StoredSettings::mediumTextKey(feature));
      for (const std::string& key : keys) {
        values.erase(key);
        const auto found = before.find(key);
        if (found != before.end()) values.insert(*found);
      }
    }
  }
  store.store(printer.name(), values);
}

}  // namespace publishing
