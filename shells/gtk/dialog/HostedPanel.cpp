// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/HostedPanel.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/StoredSettings.h"
#include "shells/PanelSummary.h"
#include "shells/gtk/Guarded.h"
#include "shells/gtk/dialog/PanelReasons.h"

namespace publishing {

const HostedPanel::Feature HostedPanel::kFeatures[2] = {
    {cCoverMediaType, "CmCheckBox", "CmMediaType", &PublishingPDE::changeCmEnableState},
    {cPageMediaType, "PiCheckBox", "PiMediaType", &PublishingPDE::changePiEnableState}};

HostedPanel::HostedPanel(std::unique_ptr<Printer> printer, const DialogJob& job,
                         const std::string& dataFolder, std::function<void()> changed)
    : printer_(std::move(printer)),
      ticket_(printer_->newTicket()),
      bundle_(std::make_shared<GtkBundle>(dataFolder)),
      host_(std::make_shared<PrintHost>(*printer_, ticket_)),
      changed_(std::move(changed)) {
  plugin_.initWithBundle(bundle_);
  panel_ = plugin_.PDEPanelsForType(kPrinterModulePanelType, host_)->front();
  for (const Feature& feature : kFeatures) {
    const auto chosen = job.options.find(feature.option);
    if (chosen != job.options.end()) dialogMedia_[feature.option] = chosen->second;
  }
  loadStored();
}

void HostedPanel::loadStored() {
  const StoredSettings::Loaded stored = StoredSettings().load(printer_->name());
  for (const std::string& warning : stored.warnings)
    g_message("%s", warning.c_str());
  for (const auto& [key, value] : stored.values)
    ticket_.setValue(key, value);
}

bool HostedPanel::matters(const DialogJob& job) const {
  if (ticket_.getValue(kCoverModeState) == "On" || ticket_.getValue(kPageinsertState) == "On") {
    return true;
  }
  return std::any_of(std::begin(kFeatures), std::end(kFeatures), [&](const Feature& feature) {
    const auto now = job.options.find(feature.option);
    const auto before = dialogMedia_.find(feature.option);
    return now != job.options.end() &&
           (before == dialogMedia_.end() || before->second != now->second);
  });
}

bool HostedPanel::suits(const Printer& printer) {
  return printer.ppd() != nullptr && !printer.ppd()->choices(cCoverMediaType).empty() &&
         !printer.ppd()->choices(cPageMediaType).empty();
}

GtkWidget* HostedPanel::open(const DialogJob& job) {
  isOpen_ = true;
  // Media that the user chose meanwhile are for takeMedia().
  DialogJob untouched = job;
  for (const auto& [option, choice] : dialogMedia_)
    untouched.options[option] = choice;
  takeJob(untouched);
  const auto* view = dynamic_cast<GtkView*>(panel_->panelView());
  if (view == nullptr) return nullptr;
  panel_->restoreValuesAndReturnError();
  panel_->willShow();
  dropStoredIndexes();
  watchControls();
  return view->widget();
}

// The panel picks the stored items anew at each refresh. From here on the controls are right, and
// what the user picks in them must last.
void HostedPanel::dropStoredIndexes() {
  for (const char* key : {kCmIndex, kPiIndex, kPageinsertValue})
    ticket_.setValue(key, std::nullopt);
}

void HostedPanel::watchControls() {
  const auto tell = [](GtkWidget*, gpointer self) {
    guarded([&] { static_cast<HostedPanel*>(self)->changed_(); });
  };
  const auto watch = [&](GtkWidget* widget, const char* signal) {
    handlers_.connect(widget, signal, G_CALLBACK(+tell), this, G_CONNECT_AFTER);
  };
  for (const Feature& feature : kFeatures) {
    watch(interface().checkBox(feature.checkBox)->widget(), "toggled");
    watch(interface().popUpButton(feature.popUp)->widget(), "changed");
  }
  GList* cells = gtk_container_get_children(
      GTK_CONTAINER(interface().radioMatrix("CmFrontandBackMatrix")->widget()));
  for (const GList* cell = cells; cell != nullptr; cell = cell->next)
    watch(GTK_WIDGET(cell->data), "clicked");
  g_list_free(cells);
}

void HostedPanel::takeJob(const DialogJob& job) {
  ticket_.setSides(job.sides);
  ticket_.setNumberUp(job.numberUp);
  ticket_.setReverse(job.reverse);
  printer_->ppd()->markDefaults();
  printer_->ppd()->mark(printer_->defaults());
  printer_->ppd()->mark(job.options);
}

void HostedPanel::follow(const DialogJob& job) {
  const SignalHandlers::Block block(handlers_);
  takeJob(job);
  panel_->willShow();
}

bool HostedPanel::isOn(const Feature& feature) const {
  return interface().checkBox(feature.checkBox)->state() == 1;
}

std::string HostedPanel::mediumOf(const Feature& feature) const {
  const auto choices = printer_->ppd()->choices(feature.option);
  const std::int64_t index = interface().popUpButton(feature.popUp)->indexOfSelectedItem();
  return choices.at(static_cast<std::size_t>(index < 0 ? 0 : index)).choice;
}

void HostedPanel::pick(const Feature& feature, const std::string& medium) {
  const SignalHandlers::Block block(handlers_);
  CheckBox& box = *interface().checkBox(feature.checkBox);
  if (!box.isEnabled()) return;
  if (box.state() != 1) {
    box.setState(1);
    ((*panel_).*feature.switched)(box);
  }
  const auto choices = printer_->ppd()->choices(feature.option);
  for (std::size_t index = 0; index < choices.size(); ++index) {
    if (choices[index].choice != medium) continue;
    interface().popUpButton(feature.popUp)->selectItemAtIndex(static_cast<std::int64_t>(index));
  }
}

void HostedPanel::takeMedia(const DialogJob& job) {
  for (const Feature& feature : kFeatures) {
    const auto chosen = job.options.find(feature.option);
    if (chosen == job.options.end()) continue;
    std::string& last = dialogMedia_[feature.option];
    if (chosen->second == last) continue;
    last = chosen->second;
    if (last != mediumOf(feature)) pick(feature, last);
  }
}

std::map<std::string, std::string> HostedPanel::media() {
  std::map<std::string, std::string> media;
  for (const Feature& feature : kFeatures) {
    bool& wasOn = wasOn_[feature.option];
    wasOn = wasOn || isOn(feature);
    if (!wasOn) continue;
    const std::string medium = mediumOf(feature);
    printer_->ppd()->mark(feature.option, medium);
    media[feature.option] = medium;
  }
  return media;
}

std::optional<JobTicket::Options> HostedPanel::save() {
  if (!panel_->saveValuesAndReturnError()) {
    dropStoredIndexes();
    return std::nullopt;
  }
  auto settings = ticket_.copyAsDictionary();
  dropStoredIndexes();
  return settings;
}

void HostedPanel::remember(const JobTicket::Options& settings) const {
  try {
    StoredSettings().store(printer_->name(), settings);
  } catch (const PrintError& error) {
    g_message("%s", error.what());
  }
}

std::string HostedPanel::summary() const {
  return summaryOf(panel_->state(), " · ");
}

void HostedPanel::showReasons() {
  publishing::showReasons(interface(), *panel_, *printer_, ticket_);
}

}  // namespace publishing
