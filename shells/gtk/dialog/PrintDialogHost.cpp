// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PrintDialogHost.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "Publishing/PublishingKeys.h"
#include "Publishing/global.h"
#include "base/Translation.h"
#include "shells/gtk/Guarded.h"
#include "shells/gtk/dialog/ConflictDialog.h"
#include "shells/gtk/dialog/JobHandover.h"

namespace publishing {
namespace {

constexpr const char* kHostKey = "publishing-print-dialog-host";

// The dialog's own controls whose changes the panel follows; reverse order is no printer option.
constexpr const char* kReverseCheck = "reverse_check";

// What the panel saves in the ticket under keys of its own.
constexpr const char* kPanelKeys[] = {kCoverModeState,  kCoverModeValue, kCovermodeRadioButtonState,
                                      kCmIndex,         kUnspecifed,     kPageinsertState,
                                      kPageinsertValue, kPiIndex,        kPageinsertNums};

std::string dialogName(const std::string& jobOption) {
  return "cups-" + jobOption;
}

// Those of a job's settings that come from the panel, media included, as the dialog names them.
JobHandover::Options panelOptions(const JobTicket::Options& settings) {
  JobHandover::Options options;
  for (const auto& [key, value] : settings) {
    const bool isMedium = key == cCoverMediaType || key == cPageMediaType;
    if (isMedium ||
        std::find(std::begin(kPanelKeys), std::end(kPanelKeys), key) != std::end(kPanelKeys)) {
      options[dialogName(key)] = value;
    }
  }
  return options;
}

}  // namespace

PrintDialogHost* PrintDialogHost::of(GtkPrintUnixDialog* dialog) {
  return static_cast<PrintDialogHost*>(g_object_get_data(G_OBJECT(dialog), kHostKey));
}

bool PrintDialogHost::attach(GtkPrintUnixDialog* dialog) {
  if (of(dialog) != nullptr) return true;
  HostRules rules = HostRules::load();
  if (!rules.extension || (PublishingPDE::shouldHide() && !rules.showHiddenPanels)) return false;
  if (!PrinterOptionSet::watch() && !JobHandover::watch()) {
    g_message("This GTK takes no options from the panel, which is left out");
    return false;
  }
  const auto destroy = [](gpointer host) { delete static_cast<PrintDialogHost*>(host); };
  auto* host = new PrintDialogHost(dialog, std::move(rules));
  g_object_set_data_full(G_OBJECT(dialog), kHostKey, host, +destroy);
  try {
    host->connect();
    host->followPrinter();
  } catch (...) {
    detach(dialog);
    throw;
  }
  return true;
}

void PrintDialogHost::detach(GtkPrintUnixDialog* dialog) {
  const auto tab = shareGObject(of(dialog)->page_.content());
  g_object_set_data(G_OBJECT(dialog), kHostKey, nullptr);  // deletes the host
  gtk_widget_destroy(tab.get());
}

PrintDialogHost::PrintDialogHost(GtkPrintUnixDialog* dialog, HostRules rules)
    : dialog_(dialog),
      rules_(std::move(rules)),
      page_(translated(kPublishingPanelNameKey), [this] { showHelp(); }) {
  gtk_print_unix_dialog_add_custom_tab(dialog_, page_.content(), page_.label());
}

PrintDialogHost::~PrintDialogHost() {
  if (refreshSource_ != 0) g_source_remove(refreshSource_);
}

void PrintDialogHost::connect() {
  const auto printer = [](GObject*, GParamSpec*, gpointer host) {
    guarded([&] { static_cast<PrintDialogHost*>(host)->followPrinter(); });
  };
  const auto response = [](GtkDialog* dialog, gint id, gpointer host) {
    if (id != GTK_RESPONSE_OK) return;
    bool print = true;
    guarded([&] { print = static_cast<PrintDialogHost*>(host)->mayPrint(); });
    if (!print) g_signal_stop_emission_by_name(dialog, "response");
  };
  const auto gone = [](GtkWidget* dialog, gpointer) {
    g_object_set_data(G_OBJECT(dialog), kHostKey, nullptr);
  };
  const auto soon = [](GtkWidget*, gpointer host) {
    static_cast<PrintDialogHost*>(host)->refreshSoon();
  };
  const auto mapped = [](GtkWidget*, gpointer host) {
    guarded([&] { static_cast<PrintDialogHost*>(host)->refresh(); });
  };
  handlers_.connect(dialog_, "notify::selected-printer", G_CALLBACK(+printer), this);
  handlers_.connect(dialog_, "response", G_CALLBACK(+response), this);
  handlers_.connect(page_.content(), "map", G_CALLBACK(+mapped), this);
  g_signal_connect(dialog_, "destroy", G_CALLBACK(+gone), nullptr);
  GObject* reverse =
      gtk_widget_get_template_child(GTK_WIDGET(dialog_), GTK_TYPE_PRINT_UNIX_DIALOG, kReverseCheck);
  if (GTK_IS_TOGGLE_BUTTON(reverse)) {
    handlers_.connect(reverse, "toggled", G_CALLBACK(+soon), this);
  }
}

void PrintDialogHost::showMessage(const std::string& text, bool waiting) {
  page_.showMessage(text, waiting);
  panel_.reset();
}

void PrintDialogHost::followPrinter() {
  fetch_.reset();
  optionHandlers_.disconnectAll();
  options_ = PrinterOptionSet::newest();
  GtkPrinter* printer = gtk_print_unix_dialog_get_selected_printer(dialog_);
  if (printer == nullptr) {
    showMessage(translated("Choose a printer to see its covers and inserts."));
    return;
  }
  if (gtk_printer_is_virtual(printer) != 0) {
    showMessage(translated(
        "Covers and inserts need a printer; they are not available when you print to a file."));
    return;
  }
  const std::string name = gtk_printer_get_name(printer);
  page_.showForNow(translated("Asking the printer %s about covers and inserts…", name), true);
  panel_.reset();
  fetch_ = std::make_unique<PrinterFetch>(
      name, rules_.printerSeconds,
      [this](std::unique_ptr<Printer> opened, const std::string& problem) {
        guarded([&] { showPrinter(std::move(opened), problem); });
      },
      [this, name] {
        showMessage(
            translated("The printer %s is not responding. You can choose covers and inserts once "
                       "it does; other printers are listed on the “General” tab.",
                       name),
            true);
      });
}

void PrintDialogHost::showPrinter(std::unique_ptr<Printer> printer, const std::string& problem) {
  if (printer == nullptr) {
    showMessage(problem);
    return;
  }
  if (!HostedPanel::suits(*printer)) {
    showMessage(
        translated("The printer %s does not offer covers and inserts. They need a Zephrel "
                   "PostScript printer with its own driver.",
                   printer->name()));
    return;
  }
  for (const std::string& warning : printer->warnings())
    g_message("%s", warning.c_str());
  const DialogJob job = DialogJob::of(dialog_);
  panel_ = std::make_unique<HostedPanel>(std::move(printer), job, rules_.dataFolder,
                                         [this] { guarded([this] { panelChanged(); }); });
  page_.offerPanel(panel_->name());
  const auto soon = [](GObject*, gpointer host) {
    static_cast<PrintDialogHost*>(host)->refreshSoon();
  };
  if (options_) optionHandlers_.connect(options_.object(), "changed", G_CALLBACK(+soon), this);
  if (page_.isInFront() || panel_->matters(job)) openPanel();
}

bool PrintDialogHost::openPanel() {
  if (panel_->isOpen()) return true;
  GtkWidget* view = panel_->open(DialogJob::of(dialog_));
  if (view == nullptr) {
    showMessage(translated("The panel cannot be shown because it is not completely installed."));
    return false;
  }
  page_.showPanel(view);
  giveStoredMedia();
  panelChanged();
  return true;
}

void PrintDialogHost::refreshSoon() {
  if (refreshSource_ != 0 || panel_ == nullptr) return;
  const auto run = [](gpointer self) -> gboolean {
    auto& host = *static_cast<PrintDialogHost*>(self);
    host.refreshSource_ = 0;
    guarded([&] { host.refresh(); });
    return G_SOURCE_REMOVE;
  };
  refreshSource_ = g_idle_add(+run, this);
}

void PrintDialogHost::refresh() {
  if (panel_ == nullptr) return;
  const DialogJob job = DialogJob::of(dialog_);
  const bool isNeeded = page_.isInFront() || panel_->matters(job);
  if (!panel_->isOpen() && (!isNeeded || !openPanel())) return;
  panel_->follow(job);
  panel_->takeMedia(job);
  panelChanged();
}

void PrintDialogHost::giveMedia() {
  const SignalHandlers::Block block(optionHandlers_);
  for (const auto& [option, choice] : panel_->media()) {
    if (options_.set(dialogName(option), choice)) panel_->dialogShows(option, choice);
  }
}

// The dialog's own handler would take the change for the user's and stop waiting for the printer
// that it wants to select.
void PrintDialogHost::giveStoredMedia() {
  GObject* set = options_.object();
  if (set == nullptr) return;
  g_signal_handlers_block_matched(set, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, dialog_);
  giveMedia();
  g_signal_handlers_unblock_matched(set, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, dialog_);
}

void PrintDialogHost::panelChanged() {
  if (panel_ == nullptr) return;
  giveMedia();
  panel_->showReasons();
  page_.setSummary(panel_->summary());
}

void PrintDialogHost::showHelp() {
  if (panel_ == nullptr || panel_->showHelp()) return;
  GtkWidget* notice = gtk_message_dialog_new(
      GTK_WINDOW(dialog_),
      static_cast<GtkDialogFlags>(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT),
      GTK_MESSAGE_INFO, GTK_BUTTONS_CLOSE, "%s", translated("The help cannot be shown.").c_str());
  gtk_message_dialog_format_secondary_text(
      GTK_MESSAGE_DIALOG(notice), "%s",
      translated("Install a web browser, or open this page with another program: %s",
                 rules_.dataFolder + "/help/C/index.html")
          .c_str());
  g_signal_connect(notice, "response", G_CALLBACK(gtk_widget_destroy), nullptr);
  gtk_widget_show(notice);
}

bool PrintDialogHost::mayPrint() {
  if (panel_ == nullptr) return true;
  // The alerts below run a main loop of their own, in which the program may destroy the dialog.
  const auto dialog = shareGObject(dialog_);
  const auto isGone = [&dialog, this] { return of(dialog.get()) != this; };
  if (!openPanel()) return true;
  refresh();
  const auto settings = panel_->save();
  if (isGone()) return false;
  if (!settings) {
    bringToFront();
    return false;
  }
  const auto conflicts = panel_->conflicts();
  if (!conflicts.empty()) {
    const bool insists = insistsOnConflicts(GTK_WINDOW(dialog.get()), conflicts);
    if (isGone() || !insists) return false;
  }
  handOver(*settings);
  panel_->remember(*settings);
  return true;
}

void PrintDialogHost::handOver(const JobTicket::Options& settings) const {
  if (!options_) {
    JobHandover::give(gtk_print_unix_dialog_get_selected_printer(dialog_), panelOptions(settings));
    return;
  }
  for (const char* key : kPanelKeys) {
    const auto saved = settings.find(key);
    if (saved != settings.end()) {
      options_.store(dialogName(key), saved->second);
    } else {
      options_.remove(dialogName(key));
    }
  }
}

void PrintDialogHost::bringToFront() {
  GtkWidget* tabs = gtk_widget_get_ancestor(page_.content(), GTK_TYPE_NOTEBOOK);
  if (tabs == nullptr) return;
  auto* notebook = GTK_NOTEBOOK(tabs);
  gtk_notebook_set_current_page(notebook, gtk_notebook_page_num(notebook, page_.content()));
}

}  // namespace publishing
