// SPDX-License-Identifier: Apache-2.0
#include "programs/commands/PreparedJob.h"

#include "Publishing/PublishingKeys.h"
#include "Publishing/global.h"
#include "base/Translation.h"
#include "printing/FeaturesOff.h"
#include "printing/JobLayout.h"
#include "printing/PrintError.h"
#include "printing/Remembering.h"
#include "printing/presets/Presets.h"
#include "programs/terminal/Terminal.h"
#include "shells/HostRules.h"
#include "shells/PanelDump.h"

namespace publishing {
namespace {

using nlohmann::json;

constexpr const char* kNone = "None";

void refuseConflicts(const std::vector<std::string>& conflicts) {
  std::string message = translated("The printer cannot combine these choices:");
  for (const std::string& conflict : conflicts)
    message += "\n  " + conflict;
  message += '\n';
  message += translated("Change one of them, or print anyway with --ignore-conflicts.");
  throw PrintError::refused(message);
}

// Programs read this: in English whatever the user's language is.
json englishSummaryOf(const PublishingSettings& state) {
  const auto status = [](std::int64_t enableState) { return enableState == 1 ? kOn : kOff; };
  return {{kCovermodeStatus, status(state.covermodeEnableState)},
          {kPageinsertStatus, status(state.pageinsertEnableState)}};
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words)
    text += (text.empty() ? "" : ", ") + word;
  return text;
}

// The medium that the queue's or the user's default options have for the feature.
std::optional<std::string> defaultMedium(const Printer& printer, const char* option) {
  const auto found = findJobOption(printer.defaults(), option);
  if (found == printer.defaults().end() || found->second == kNone) return std::nullopt;
  return found->second;
}

}  // namespace

PreparedJob::PreparedJob(PrintArguments& arguments) : printer_(arguments.printer.open()) {
  if (!printer_.obstacles().rejects.empty() && !arguments.dryRun) {
    throw PrintError::refused(printer_.obstacles().rejects);
  }
  if (arguments.remember) checkRule();
  JobWishes& wishes = arguments.wishes;
  ticket_ = printer_.newTicket();
  restore(arguments);
  wishes.applyTo(printer_, ticket_);
  checkLayout(wishes);
  drivePanel(wishes);
  tellLeftOut(wishes);
  toRemember_ = *ticket_.copyAsDictionary();
  takeOutMediaOff(ticket_, printer_);
  checkConflicts(arguments.ignoreConflicts);
}

void PreparedJob::checkRule() {
  const std::string against = HostRules::load().againstRemembering();
  if (against.empty()) return;
  throw PrintError::refused(against + ' ' + translated("Leave out --remember."));
}

// A medium that is gone is no reason to print on another one.
void PreparedJob::restore(const PrintArguments& arguments) {
  if (arguments.preset) {
    StoredPreset found = Presets().find(*arguments.preset);
    for (const std::string& warning : found.warnings)
      warn(warning);
    preset_ = std::move(found.preset);
    restorePreset(arguments.wishes.panel);
    return;
  }
  if (!printer_.isQueue() || arguments.fresh || !HostRules::load().remember) return;
  const Remembered remembered = recall(StoredSettings(), printer_);
  for (const std::string& warning : remembered.warnings)
    warn(warning);
  for (const auto& [key, value] : remembered.values) {
    remembered_.setValue(key, value);
    ticket_.setValue(key, value);
  }
  if (!remembered.losses.empty()) checkLosses(remembered, arguments.wishes.panel);
}

// Of a feature whose paper the command line names, the preset's is not asked for.
void PreparedJob::restorePreset(const PanelRequest& wish) {
  StoredSettings::Values values = valuesOf(*preset_);
  const auto dropMedium = [&values](const PublishingFeature& feature) {
    values.erase(feature.option);
    values.erase(StoredSettings::mediumTextKey(feature));
  };
  if (wish.coverMedia) dropMedium(kCoverMode);
  if (wish.insertMedia) dropMedium(kPageInsert);
  const Remembered fitted = fittedTo(printer_, values, SettingsFrom::Preset);
  for (const auto& [key, value] : fitted.values) {
    remembered_.setValue(key, value);
    ticket_.setValue(key, value);
  }
  const bool missesCovers =
      preset_->hasCover() && !isOn(kCoverMode, remembered_) && wish.cover.value_or("") != kNoCover;
  const bool missesInserts = preset_->hasInserts() && !isOn(kPageInsert, remembered_) &&
                             wish.insert.value_or("") != kNoInserts;
  if (!missesCovers && !missesInserts) return;
  std::string message;
  for (const std::string& loss : fitted.losses)
    message += loss + '\n';
  throw PrintError::refused(
      message + translated("Name another paper with --cover-media and --insert-media, or leave out "
                           "what is not possible with --cover none and --insert none."));
}

void PreparedJob::checkLosses(const Remembered& remembered, const PanelRequest& wish) const {
  JobTicket stored;
  for (const auto& [key, value] : StoredSettings().load(printer_.name()).values)
    stored.setValue(key, value);
  const auto isMissed = [&](const PublishingFeature& feature, bool isWished) {
    return !isWished && isOn(feature, stored) && !isOn(feature, remembered_);
  };
  std::string message;
  for (const std::string& loss : remembered.losses)
    message += loss + '\n';
  if (!isMissed(kCoverMode, wish.cover.has_value()) &&
      !isMissed(kPageInsert, wish.insert.has_value())) {
    return;
  }
  throw PrintError::refused(message +
                            translated("Say what to print with --cover and --insert, or use "
                                       "--fresh to start without what is remembered."));
}

bool PreparedJob::hasLayout() const {
  return ticket_.getValue(kNup) == "1" || ticket_.getValue(kOutputOrder) == "Reverse";
}

// Who asks for the layout that covers and inserts cannot have, with the remedy.
std::string PreparedJob::originOfLayout(const JobWishes& wishes) const {
  const bool isWished = wishes.numberUp.value_or(1) > 1 || wishes.reverse.value_or(false) ||
                        wishes.booklet.value_or(false);
  if (isWished) {
    return translated("Leave out --reverse and --number-up, or the covers and inserts.");
  }
  const JobLayout layout = layoutOf(printer_.defaults());
  if (layout.numberUp.value_or(1) > 1 || layout.reverse || layout.booklet) {
    return translated(
        "The default options of the queue ask for that (see: lpoptions -p %s). Give "
        "--number-up 1 and -o outputorder=normal, or leave out the covers and "
        "inserts.",
        printer_.name());
  }
  return translated(
      "The printer's own setting asks for that. Give -o outputorder=normal, or leave "
      "out the covers and inserts.");
}

void PreparedJob::checkLayout(const JobWishes& wishes) const {
  if (!hasLayout() || (!wishes.wantsCover() && !wishes.wantsInserts())) return;
  throw PrintError::refused(
      translated("Covers and inserts cannot be combined with reverse output order or several pages "
                 "per side.") +
      ' ' + originOfLayout(wishes));
}

void PreparedJob::drivePanel(const JobWishes& wishes) {
  user_ = std::make_unique<PanelUser>(printer_, ticket_);
  user_->apply(wishes.panel);
  takeDefaultMedia(wishes);
  try {
    user_->save();
  } catch (const PrintError& error) {
    if (wishes.panel.insert || !isOn(kPageInsert, remembered_)) throw;
    throw PrintError(error.kind(), std::string(error.what()) + '\n' + remedyForPages());
  }
}

// Where pages come from that the panel does not accept.
std::string PreparedJob::remedyForPages() const {
  if (preset_) {
    return translated("The pages come from the preset \"%s\" (%s). Give others with --insert.",
                      preset_->name, preset_->insert);
  }
  return translated(
      "The pages are remembered for %s (%s). Give others with --insert, or use --fresh to start "
      "without what is remembered.",
      printer_.name(), shown(remembered_.getValue(kPageinsertNums).value_or("")));
}

// The panel starts with its first medium; a default option of the queue is a choice of the user's.
void PreparedJob::takeDefaultMedia(const JobWishes& wishes) {
  PanelRequest request;
  const PublishingSettings& state = user_->panel().state();
  if (state.covermodeEnableState == 1 && !wishes.panel.coverMedia &&
      !isOn(kCoverMode, remembered_)) {
    request.coverMedia = defaultMedium(printer_, cCoverMediaType);
  }
  if (state.pageinsertEnableState == 1 && !wishes.panel.insertMedia &&
      !isOn(kPageInsert, remembered_)) {
    request.insertMedia = defaultMedium(printer_, cPageMediaType);
  }
  user_->apply(request);
}

// Covers or inserts that are remembered or in the preset, but not possible with this job's layout.
void PreparedJob::tellLeftOut(const JobWishes& wishes) const {
  const bool covers = !wishes.panel.cover && isOn(kCoverMode, remembered_);
  const bool inserts = !wishes.panel.insert && isOn(kPageInsert, remembered_);
  if (!hasLayout()) tellSidesLeftOut(wishes.panel);
  if (!hasLayout() || (!covers && !inserts)) return;
  if (preset_) {
    warn(
        translated("The covers and inserts of the preset \"%s\" are left out: they cannot be "
                   "combined with reverse output order or several pages per side.",
                   preset_->name));
    return;
  }
  warn(
      translated("The covers and inserts remembered for %s are left out: they cannot be combined "
                 "with reverse output order or several pages per side.",
                 printer_.name()));
}

void PreparedJob::tellSidesLeftOut(const PanelRequest& wish) const {
  if (!preset_ || ticket_.getDuplex() != static_cast<std::int32_t>(Sides::OneSided)) return;
  Preset taken = *preset_;
  if (wish.cover || wish.coverSides) taken.coverSides.clear();
  if (wish.insertSides || wish.insert == kNoInserts) taken.insertSides.clear();
  const auto sides = sidesThatNeedTwoSided(taken);
  if (sides.empty()) return;
  warn(
      translated("These sides of the preset \"%s\" need two-sided printing (--sides) and are left "
                 "out: %s.",
                 preset_->name, joined(sides)));
}

void PreparedJob::checkConflicts(bool ignore) {
  if (printer_.ppd() == nullptr) return;
  for (const Conflict& conflict : conflictsOf(ticket_, *printer_.ppd()))
    conflicts_.push_back(conflict.text());
  if (!conflicts_.empty() && !ignore) refuseConflicts(conflicts_);
}

JobSheets PreparedJob::sheets(std::optional<int> documentPages) const {
  return sheetsOf(printer_.jobOptions(ticket_), printer_.ppd(), documentPages);
}

json PreparedJob::report() const {
  PublishingPDE& panel = user_->panel();
  return {{"printer", printer_.name()},
          {"preset", preset_ ? json(preset_->name) : json(nullptr)},
          {"summary", englishSummaryOf(panel.state())},
          {"controls", dumpControls(panel)},
          {"fields", dumpFields(panel.state())},
          {"settings", *ticket_.copyAsDictionary()},
          {"options", printer_.jobOptions(ticket_)},
          {"conflicts", conflicts_},
          {"job", nullptr}};
}

StoredSettings::Values PreparedJob::panelValues() const {
  return toRemember(printer_, toRemember_);
}

void PreparedJob::remember() const {
  if (hasLayout()) {
    warn(translated("Nothing was remembered, because this job cannot have covers and inserts."));
    return;
  }
  publishing::remember(StoredSettings(), printer_, toRemember_);
}

}  // namespace publishing
