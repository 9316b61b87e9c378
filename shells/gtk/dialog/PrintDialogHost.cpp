// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/PrintDialogHost.h"

#include <utility>

#include "Publishing/PublishingFeatures.h"
#include "Publishing/global.h"
#include "base/Translation.h"
#include "shells/DisplayText.h"
#include "shells/ExtensionNames.h"
#include "shells/Guarded.h"
#include "shells/HostMessages.h"
#include "shells/gtk/GtkBundle.h"
#include "shells/gtk/Toolkit.h"
#include "shells/gtk/dialog/DialogSettings.h"
#include "shells/gtk/dialog/JobHandover.h"
#include "shells/gtk/dialog/PrintQuestions.h"

namespace publishing {
namespace {

constexpr const char* kHostKey = "publishing-print-dialog-host";

// The dialog's own controls whose changes the panel follows; reverse order is no printer option.
constexpr const char* kReverseCheck = "reverse_check";

constexpr DialogPlaces kPlaces = {
    N_("Needs two-sided printing: see the “Page Setup” tab."),
    N_("Needs the pages in order: switch off “Reverse” on the “General” tab."),
    N_("Needs one page per side: see “Pages per side” on the “Page Setup” tab."),
    N_("The printer %s is not responding. You can choose covers and inserts once it does; other "
       "printers are listed on the “General” tab.")};

std::string dialogName(const std::string& jobOption) {
  return "cups-" + jobOption;
}

// The dialog's tabs.
GtkNotebook* notebookOf(GtkWidget* tab) {
  GtkWidget* tabs = gtk_widget_get_ancestor(tab, GTK_TYPE_NOTEBOOK);
  return tabs != nullptr ? GTK_NOTEBOOK(tabs) : nullptr;
}

}  // namespace

PrintDialogHost* PrintDialogHost::of(GtkPrintUnixDialog* dialog) {
  return static_cast<PrintDialogHost*>(g_object_get_data(G_OBJECT(dialog), kHostKey));
}

bool PrintDialogHost::attach(GtkPrintUnixDialog* dialog) {
  if (of(dialog) != nullptr) return true;
  HostRules rules = HostRules::load();
  if (!rules.wantPanel()) return false;
  if (!DialogOptionSet::watch() && !JobHandover::watch()) {
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
  if (GtkNotebook* tabs = notebookOf(tab.get()))
    gtk_notebook_remove_page(tabs, gtk_notebook_page_num(tabs, tab.get()));
}

PrintDialogHost::PrintDialogHost(GtkPrintUnixDialog* dialog, HostRules rules)
    : dialog_(dialog),
      rules_(std::move(rules)),
      printers_(dialog),
      page_(
          translated(kPublishingPanelNameKey), [this] { host_.showHelp(); },
          [this] {
            return std::vector{remember_.makeBox(), reset_.makeButton(), presets_.makeButton()};
          }),
      host_(*this),
      presets_(host_),
      reset_(host_),
      remember_(host_) {
  gtk_print_unix_dialog_add_custom_tab(dialog_, page_.content(), page_.label());
}

PrintDialogHost::~PrintDialogHost() {
  for (const guint source : {refreshSource_, printSource_})
    if (source != 0) g_source_remove(source);
}

void PrintDialogHost::connect() {
  const auto printer = [](GObject*, GParamSpec*, gpointer self) {
    guarded([&] { static_cast<PrintDialogHost*>(self)->followPrinter(); });
  };
  const auto response = [](GtkDialog* dialog, gint id, gpointer self) {
    if (id != GTK_RESPONSE_OK) return;
    bool print = true;
    guarded([&] { print = static_cast<PrintDialogHost*>(self)->host_.mayPrint(); });
    if (!print) g_signal_stop_emission_by_name(dialog, "response");
  };
  const auto soon = [](GtkWidget*, gpointer self) {
    static_cast<PrintDialogHost*>(self)->refreshSoon();
  };
  const auto mapped = [](GtkWidget*, gpointer self) {
    guarded([&] { static_cast<PrintDialogHost*>(self)->host_.refresh(); });
  };
  handlers_.connect(dialog_, "notify::selected-printer", G_CALLBACK(+printer), this);
  handlers_.connect(dialog_, "response", G_CALLBACK(+response), this);
  printers_.setPicked([this] {
    const auto picked = selection();
    if (picked && picked->isPending) followPrinter();
  });
  handlers_.connect(page_.content(), "map", G_CALLBACK(+mapped), this);
  toolkit::whenDestroyed(GTK_WINDOW(dialog_), [dialog = G_OBJECT(dialog_)] {
    g_object_set_data(dialog, kHostKey, nullptr);
  });
  GObject* reverse =
      gtk_widget_get_template_child(GTK_WIDGET(dialog_), GTK_TYPE_PRINT_UNIX_DIALOG, kReverseCheck);
  if (GTK_IS_CHECK_BUTTON(reverse)) {
    handlers_.connect(reverse, "toggled", G_CALLBACK(+soon), this);
  }
}

// The dialog has just made the options of the printer that it reports.
void PrintDialogHost::followPrinter() {
  const auto soon = [](GObject*, gpointer self) {
    static_cast<PrintDialogHost*>(self)->refreshSoon();
  };
  optionHandlers_.disconnectAll();
  options_ = DialogOptionSet::newest();
  if (options_) optionHandlers_.connect(options_.object(), "changed", G_CALLBACK(+soon), this);
  host_.followPrinter();
}

void PrintDialogHost::refreshSoon() {
  if (refreshSource_ != 0 || !hasPanel()) return;
  const auto run = [](gpointer data) -> gboolean {
    auto& self = *static_cast<PrintDialogHost*>(data);
    self.refreshSource_ = 0;
    guarded([&] { self.host_.refresh(); });
    return G_SOURCE_REMOVE;
  };
  refreshSource_ = g_idle_add(+run, this);
}

std::optional<ToolkitDialog::Selection> PrintDialogHost::selection() const {
  GtkPrinter* printer = gtk_print_unix_dialog_get_selected_printer(dialog_);
  const bool isPending = printer == nullptr;
  const auto picked = isPending ? printers_.picked() : nullptr;
  if (isPending) printer = picked.get();
  if (printer == nullptr) return std::nullopt;
  return Selection{gtk_printer_get_name(printer), gtk_printer_is_virtual(printer) != 0, isPending};
}

DialogJob PrintDialogHost::job() const {
  return jobOf(dialog_);
}

std::optional<int> PrintDialogHost::documentPages() const {
  const int pages = GPOINTER_TO_INT(g_object_get_data(G_OBJECT(dialog_), DOCUMENT_PAGES_KEY));
  return pages > 0 ? std::optional(pages) : std::nullopt;
}

void PrintDialogHost::openPrinter(const std::string& queue, Opened opened,
                                  std::function<void()> late) {
  fetch_ = std::make_unique<PrinterFetch>(queue, rules_.printerSeconds, std::move(opened),
                                          std::move(late));
}

std::shared_ptr<HostBundle> PrintDialogHost::makeBundle() {
  return std::make_shared<GtkBundle>(rules_.dataFolder);
}

void PrintDialogHost::showMessage(const std::string& text, Waiting waiting) {
  if (waiting == Waiting::Asking) {
    page_.showForNow(text, true);
  } else {
    page_.showMessage(text, waiting == Waiting::Late);
  }
}

void PrintDialogHost::showPanel(View& view) {
  page_.showPanel(dynamic_cast<GtkView&>(view).widget());
}

bool PrintDialogHost::showChoice(const std::string& option, const std::string& choice,
                                 bool byUser) {
  GObject* set = options_.object();
  if (set == nullptr) return false;
  const SignalHandlers::Block own(optionHandlers_);
  if (byUser) return options_.set(dialogName(option), choice);
  // The dialog's own handler would take the change for the user's and stop waiting for the printer
  // that it wants to select.
  g_signal_handlers_block_matched(set, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, dialog_);
  const bool isShown = options_.set(dialogName(option), choice);
  g_signal_handlers_unblock_matched(set, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, dialog_);
  return isShown;
}

void PrintDialogHost::handOver(const JobTicket::Options& options) {
  if (!options_) {
    JobHandover::Options named;
    for (const auto& [key, value] : options)
      named[dialogName(key)] = value;
    JobHandover::give(gtk_print_unix_dialog_get_selected_printer(dialog_), std::move(named));
    return;
  }
  for (const PublishingFeature& feature : kFeatures) {
    for (const char* key : feature.keys) {
      const auto saved = options.find(key);
      if (saved != options.end()) {
        options_.store(dialogName(key), saved->second);
      } else {
        options_.remove(dialogName(key));
      }
    }
  }
}

const DialogPlaces& PrintDialogHost::places() const {
  return kPlaces;
}

void PrintDialogHost::setSummary(const std::string& text) {
  page_.setSummary(text);
  reset_.update();
  remember_.update();
}

void PrintDialogHost::showOutsideTab(const std::string& line) {
  page_.mark(!line.empty());
  line_.show(GTK_DIALOG(dialog_), line);
}

void PrintDialogHost::bringTabToFront() {
  if (GtkNotebook* tabs = notebookOf(page_.content()))
    gtk_notebook_set_current_page(tabs, gtk_notebook_page_num(tabs, page_.content()));
}

void PrintDialogHost::pressPrint() {
  if (printSource_ != 0) return;
  const auto press = [](gpointer data) -> gboolean {
    auto& self = *static_cast<PrintDialogHost*>(data);
    self.printSource_ = 0;
    auto* dialog = GTK_DIALOG(self.dialog_);
    GtkWidget* button = gtk_dialog_get_widget_for_response(dialog, GTK_RESPONSE_OK);
    if (button == nullptr || gtk_widget_is_sensitive(button) != 0) {
      gtk_dialog_response(dialog, GTK_RESPONSE_OK);
    }
    return G_SOURCE_REMOVE;
  };
  printSource_ = g_idle_add(+press, this);
}

bool PrintDialogHost::insistsOnConflicts(const std::vector<Conflict>& conflicts) {
  return publishing::insistsOnConflicts(GTK_WINDOW(dialog_), conflicts);
}

bool PrintDialogHost::printsWithout(const std::string& losses) {
  return publishing::printsWithout(GTK_WINDOW(dialog_), losses);
}

void PrintDialogHost::sayHelpIsMissing() {
  const HostMessage message = missingHelpMessage(rules_.dataFolder);
  GtkWidget* notice = gtk_message_dialog_new(
      GTK_WINDOW(dialog_),
      static_cast<GtkDialogFlags>(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT),
      GTK_MESSAGE_INFO, GTK_BUTTONS_CLOSE, "%s", message.title.c_str());
  gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(notice), "%s",
                                           displayText(message.text).c_str());
  g_signal_connect(notice, "response", G_CALLBACK(toolkit::destroyWindow), nullptr);
  gtk_widget_show(notice);
}

}  // namespace publishing
