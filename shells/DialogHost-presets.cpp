// SPDX-License-Identifier: Apache-2.0
// The presets in the panel's tab.
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "shells/DialogHost.h"
#include "shells/HostMessages.h"

namespace publishing {
void DialogHost::usePreset(const std::string& name, PresetQuestions& questions) {
  if (panel_ == nullptr || !panel_->isOpen()) return;
  std::optional<StoredPreset> found;
  try {
    found = Presets().find(name);
  } catch (const PrintError& error) {
    questions.tell(error.what());
    return;
  }
  std::vector<std::string> notices = found->warnings;
  for (const std::string& missing : panel_->take(found->preset))
    notices.push_back(missing);
  dialog_.showNotices(linesOf(notices));
  panelChanged();
}

// Each question runs a main loop of its own, in which the program may destroy the dialog, or
// another printer may be selected: the choices that were to be saved stay what they were, and
// nothing of the host is needed any more.
void DialogHost::savePreset(PresetQuestions& questions) {
  const auto panel = panel_;
  if (panel == nullptr || !panel->isOpen()) return;
  const std::weak_ptr<const bool> life = life_;
  if (panel->isForbiddenByLayout()) {
    questions.tell(
        translated("Covers and inserts cannot be combined with reverse output order or several "
                   "pages per side."));
    return;
  }
  const auto settings = panel->save();
  if (life.expired() || panel_ != panel) return;
  if (!settings) {
    panel->revealFault();
    return;
  }
  const auto name = questions.askName();
  if (!name || life.expired()) return;
  const Presets presets;
  const Preset preset = panel->asPreset(*name, *settings);
  try {
    const bool isThere = presets.hasOwn(*name);
    if (isThere && (!questions.confirmsReplacing(*name) || life.expired())) return;
    presets.store(preset, isThere ? Presets::Existing::Replace : Presets::Existing::Keep);
  } catch (const PrintError& error) {
    questions.tell(error.what());
  }
}

void DialogHost::deletePreset(const std::string& name, PresetQuestions& questions) {
  const std::weak_ptr<const bool> life = life_;
  if (!questions.confirmsDeleting(name) || life.expired()) return;
  try {
    Presets().remove(name);
  } catch (const PrintError& error) {
    questions.tell(error.what());
  }
}

}  // namespace publishing
