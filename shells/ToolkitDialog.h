// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "printing/JobSheets.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"
#include "printing/ppd/PPDDocument.h"
#include "shells/DialogJob.h"
#include "shells/DialogPlaces.h"
#include "shells/HostBundle.h"
#include "shells/HostRules.h"

namespace publishing {

// A print dialog as the panel's host sees it. Each toolkit implements it for its own dialog; what
// is decided about the panel is the host's (DialogHost).
class ToolkitDialog {
 public:
  virtual ~ToolkitDialog() = default;

  // --- the job ---

  struct Selection {
    std::string printer;
    bool isFile = false;  // a stand-in for a printer that writes a file
    // The user picked it, and the dialog itself still asks it for what it can do.
    bool isPending = false;
  };
  // Nothing while no printer is selected.
  [[nodiscard]] virtual std::optional<Selection> selection() const = 0;

  // What the dialog's own tabs say of the job.
  [[nodiscard]] virtual DialogJob job() const = 0;

  // How many pages the document has; nothing when the program does not tell.
  [[nodiscard]] virtual std::optional<int> documentPages() const { return std::nullopt; }

  // Shows a choice of the printer's options in the dialog's own tabs; false when they have no such
  // option. `byUser`: the choice follows from a gesture, not from what is stored.
  virtual bool showChoice(const std::string& option, const std::string& choice, bool byUser) = 0;

  // Gives the job these options and takes from it the panel's keys that are not among
  // them. Media are shown in the dialog's own tabs already, where it has any for them.
  virtual void handOver(const JobTicket::Options& options) = 0;

  [[nodiscard]] virtual const DialogPlaces& places() const = 0;

  // --- the printer ---

  // The printer, or null and a message for the user.
  using Opened = std::function<void(std::unique_ptr<Printer> printer, const std::string& problem)>;

  // Opens the queue without holding up the user interface, then calls `opened`; before that `late`,
  // once, when it takes long. An earlier question is dropped.
  virtual void openPrinter(const std::string& queue, Opened opened, std::function<void()> late) = 0;

  // Drops the question: neither function is called any more.
  virtual void stopOpening() = 0;

  // --- the panel's tab ---

  [[nodiscard]] virtual std::shared_ptr<HostBundle> makeBundle() = 0;

  // Shows a text in the tab in place of the panel. Asking: for something that is over in a moment.
  // Late: it takes longer than that. NoPanel: there will be none for this printer.
  enum class Waiting { Asking, Late, NoPanel };
  virtual void showMessage(const std::string& text, Waiting waiting) = 0;

  // Says in the tab's label that the panel can be shown, under that name.
  virtual void offerPanel(const std::string& name) = 0;

  // Shows the panel's view, which came from a bundle of makeBundle(); the panel was offered.
  virtual void showPanel(View& view) = 0;

  // Lines above the panel that the user should know of; empty for none. Until the next showPanel().
  virtual void showNotices(const std::string& text) = 0;

  // Some lines below the panel, while it is shown: what comes out of the printer, in words.
  virtual void setSummary(const std::string& text) = 0;

  // The same as a picture, for dialogs that have one.
  virtual void showSheets(const JobSheets& /*sheets*/) {}

  // What the user of the dialog's other tabs should know of the panel: a line for a place that
  // moves nothing else, and a mark in the tab's label. Empty when no feature is on. Dialogs that
  // have no such place may leave it out.
  virtual void showOutsideTab(const std::string& /*line*/) {}

  [[nodiscard]] virtual bool isTabInFront() const = 0;
  virtual void bringTabToFront() = 0;

  // What the administrator and the user have decided.
  [[nodiscard]] virtual const HostRules& rules() const = 0;

  // --- the user ---

  // Does what pressing Print does, soon or at once.
  virtual void pressPrint() = 0;

  // Tells which choices the printer cannot combine and asks whether to print all the same. Modal.
  virtual bool insistsOnConflicts(const std::vector<Conflict>& conflicts) = 0;

  // Tells what the job cannot have of what is remembered, and asks whether to print without it.
  // Modal.
  virtual bool printsWithout(const std::string& losses) = 0;

  // Says that the help could not be shown, and where it is.
  virtual void sayHelpIsMissing() = 0;
};

}  // namespace publishing
