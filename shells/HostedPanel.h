// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Publishing/PublishingFeatures.h"
#include "Publishing/PublishingPDEPlugin.h"
#include "printing/FeaturesOff.h"
#include "printing/JobLayout.h"
#include "printing/JobSheets.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"
#include "printing/StoredSettings.h"
#include "printing/ppd/PPDDocument.h"
#include "printing/presets/Preset.h"
#include "shells/DialogJob.h"
#include "shells/DialogPlaces.h"
#include "shells/HostBundle.h"
#include "shells/PageListFault.h"
#include "shells/PageListField.h"
#include "shells/PanelControls.h"
#include "shells/PanelWish.h"
#include "shells/TicketCallback.h"

namespace publishing {

// The panel on one printer, with the ticket of the job that a print dialog is making. Another
// printer gets another one.
class HostedPanel {
 public:
  // `job` is what the dialog says of a job that the user has not touched yet; `mayRemember` whether
  // anything may be remembered from one job to the next; `changed` is called after each gesture of
  // the user in the panel.
  HostedPanel(std::unique_ptr<Printer> printer, const DialogJob& job,
              std::shared_ptr<HostBundle> bundle, bool mayRemember,
              HostBundle::UserChanged changed);
  HostedPanel(const HostedPanel&) = delete;
  HostedPanel& operator=(const HostedPanel&) = delete;

  // Whether the printer has options for the panel.
  static bool suits(const Printer& printer);

  // The panel's name for the user.
  [[nodiscard]] const std::string& name() { return panel_->panelName(); }

  [[nodiscard]] const std::string& printerName() const { return printer_->name(); }

  // What the user should know of the printer and of what is remembered for it: a PPD that may be
  // damaged, settings that cannot be read, media that are no longer offered.
  [[nodiscard]] const std::vector<std::string>& notices() const { return notices_; }

  // Those of the notices that leave something out of the job.
  [[nodiscard]] const std::vector<std::string>& losses() const { return losses_; }

  // Whether the queue's stored settings or a medium that the user chose in the dialog's own tabs
  // make a difference to the job already. `job` is what the dialog says now.
  [[nodiscard]] bool affectsJob(const DialogJob& job) const;

  // Makes the panel's view, in which the stored settings of the queue are shown, and gives it; null
  // when there is none. To be called once, before all that follows. Making it takes a few
  // milliseconds, which a dialog whose user never looks at the tab need not spend.
  View* open(const DialogJob& job);

  [[nodiscard]] bool isOpen() const { return isOpen_; }

  // Takes over what the dialog's own tabs say, and shows the panel with it: all that the user wants
  // of it and the job allows.
  void follow(const DialogJob& job);

  // Takes over what the user did in the panel. To be called after each gesture, with the name of
  // its control. Covers that begin without a side get the front's outside: nobody wants a blank
  // cover before having said so.
  void noteGesture(const std::string& outlet);

  // Picks the media that the user chose in the dialog's own tabs, and switches their features on,
  // or off for "None": media of the panel's options that differ from what the dialog showed last.
  void takeMedia(const DialogJob& job);

  // The media choices by PPD option that the dialog is to show: those of the features that are on,
  // and the choice that wants nothing where a feature that is off would have a medium. Marks them.
  std::map<std::string, std::string> media();

  // Notes that the dialog's own tabs show this medium of media() now.
  void dialogShows(const std::string& option, const std::string& choice) {
    dialogMedia_[option] = choice;
  }

  // For a user who has not seen the page list: that the panel will not accept it; nothing when it
  // will.
  [[nodiscard]] std::optional<std::string> lossOfInserts() const;

  // Switches the inserts off; what is remembered of them stays.
  void leaveOutInserts();

  // Saves the panel's state. Nothing, after an alert, when the panel does not accept the page list;
  // else all settings of the ticket, the panel's among them. A feature that is off has no medium
  // there, or the choice that wants nothing.
  std::optional<JobTicket::Options> save();

  // Leads the user to the entry of the page list that save() did not accept.
  void revealFault();

  // The conflicts among all choices of the job, but for the media of features that are off.
  [[nodiscard]] std::vector<Conflict> conflicts() const {
    return conflictsOf(ticket_, *printer_->ppd());
  }

  // Whether remember() remembers; at first what the user said of the queue last.
  [[nodiscard]] bool remembers() const { return remembers_; }
  void setRemembers(bool on) { remembers_ = on && mayRemember_; }

  // Remembers saved settings for the queue's next job, but not that the layout switched a feature
  // off. Where nothing is to be remembered, what is stored is forgotten; where nothing may be, it
  // is left alone. Trouble goes to the log only.
  void remember(const JobTicket::Options& settings) const;

  // What would come out if the user pressed Print now. `documentPages` as far as it is known.
  [[nodiscard]] JobSheets sheets(const DialogJob& job, std::optional<int> documentPages) const;

  // Wants what the preset holds and nothing else that was wanted; answers, for the user, what of it
  // the printer or the job does not have. The panel must be open.
  std::vector<std::string> take(const Preset& preset);

  // Saved settings as a preset.
  [[nodiscard]] Preset asPreset(const std::string& name, const JobTicket::Options& settings) const;

  // Whether the job's layout allows neither covers nor inserts.
  [[nodiscard]] bool isForbiddenByLayout() const;

  // Whether the panel is open and shows the feature switched on.
  [[nodiscard]] bool hasOn(const PublishingFeature& feature) const;

  // That the printer's driver has to make what is on, for the user; empty when nothing is on or the
  // print server makes it.
  [[nodiscard]] std::string noteOnDriver() const;

  // What reset() took away.
  struct Forgotten {
    PanelWish wish;
    StoredSettings::Values stored;
  };

  // Wants nothing any more, and forgets what is remembered for the queue. Throws PrintError, with
  // nothing done, when that cannot be forgotten. The panel must be open.
  Forgotten reset();

  // Wants and remembers it again. Throws PrintError as StoredSettings::store, with nothing done.
  void bringBack(const Forgotten& before);

  // Sets the tooltips of the controls that cannot be used, and says at the page list what is wrong
  // with it. `sheets` is what sheets() answers now.
  void showReasons(const DialogPlaces& places, const JobSheets& sheets);

  // Opens the help book; false when no viewer could be started.
  bool showHelp() { return !panel_->shouldShowHelp(); }

 private:
  struct Media {
    std::vector<std::string> keywords;   // of the option's choices
    std::optional<std::string> nothing;  // the choice of a feature that is off
    bool isDefaulted = false;  // a job that says nothing of the option gets a medium by it
  };

  void loadStored();
  void takeDefaultMedia();
  void takeJob(const DialogJob& job);
  void showWish();
  void want(const PanelWish& wish);
  void leaveOutMediaOff(JobTicket::Options& settings) const;
  [[nodiscard]] std::optional<PageListFault> faultInList() const;
  [[nodiscard]] PageListRules listRules() const;
  [[nodiscard]] bool isShownOn(const PublishingFeature& feature) const;
  [[nodiscard]] bool isForbidden(const PublishingFeature& feature) const;
  [[nodiscard]] std::string mediumOf(const PublishingFeature& feature) const;
  void setMedium(const PublishingFeature& feature, const std::string& medium);
  void pick(const PublishingFeature& feature, const std::string& medium);
  void startCovers();
  void startWithMedium(const PublishingFeature& feature);
  void separateTrays() const;

  std::unique_ptr<Printer> printer_;
  JobTicket ticket_;
  std::shared_ptr<HostBundle> bundle_;
  PublishingPDEPlugin plugin_;
  std::shared_ptr<PublishingPDE> panel_;
  PanelControls controls_;
  PageListField list_;
  std::map<std::string, std::string> dialogMedia_;  // by PPD option, as the dialog had them last
  std::map<std::string, std::string> givenMedia_;   // by PPD option, what media() answered last
  std::map<std::string, Media> media_;              // by PPD option
  std::vector<std::string> notices_;
  std::vector<std::string> losses_;
  bool mayRemember_;
  bool remembers_;
  bool keepsInserts_ = false;  // what is remembered of them stays, see leaveOutInserts
  PanelWish wish_;
  JobLayout defaultLayout_;  // of a job of whose layout the dialog says nothing
  DialogJob job_;            // what the dialog said last
  bool isOpen_ = false;
};

}  // namespace publishing
