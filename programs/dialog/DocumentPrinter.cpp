// SPDX-License-Identifier: Apache-2.0
#include "programs/dialog/DocumentPrinter.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

#include "base/Translation.h"
#include "printing/PrintError.h"
#include "shells/gtk/dialog/PrintedPages.h"

namespace publishing {
namespace {

constexpr guint kProgressInterval = 100;  // milliseconds
constexpr int kSpacing = 12;

struct OpenFile {
  int number;
  ~OpenFile() { close(number); }
};

int openDocument(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) {
    throw PrintError::trouble(
        translated("%s cannot be read: %s", shown(path), std::strerror(errno)));
  }
  return file;
}

// GTK leaves the choice of pages to programs that draw them one by one. This one sends the whole
// document, and the print server takes the pages out of it.
void leavePagesToTheServer(GtkPrintSettings* settings) {
  const std::string ranges = pageRangesOf(settings);
  const std::string set = pageSetOf(settings);
  if (!ranges.empty()) gtk_print_settings_set(settings, "cups-page-ranges", ranges.c_str());
  if (!set.empty()) gtk_print_settings_set(settings, "cups-page-set", set.c_str());
}

}  // namespace

ExitStatus DocumentPrinter::run() {
  while (gtk_dialog_run(GTK_DIALOG(dialog_)) == GTK_RESPONSE_OK) {
    if (send() == kDone) return kDone;
    // The user may choose another printer now, or give up.
  }
  return failure_.empty() ? kDone : kTrouble;
}

ExitStatus DocumentPrinter::send() {
  const OpenFile file{openDocument(document_.path())};
  file_ = file.number;
  GtkPrinter* printer = gtk_print_unix_dialog_get_selected_printer(dialog_);
  const std::string name = gtk_printer_get_name(printer);
  const GObjectPtr<GtkPrintSettings> settings(gtk_print_unix_dialog_get_settings(dialog_));
  leavePagesToTheServer(settings.get());
  const GObjectPtr<GtkPrintJob> job(
      gtk_print_job_new(document_.defaultTitle().c_str(), printer, settings.get(),
                        gtk_print_unix_dialog_get_page_setup(dialog_)));
  gtk_print_job_set_source_fd(job.get(), file_, nullptr);

  isSent_ = false;
  failure_.clear();
  gtk_widget_hide(GTK_WIDGET(dialog_));
  showProgress(name);
  gtk_print_job_send(job.get(), &DocumentPrinter::sent, this, nullptr);
  const auto tick = [](gpointer self) -> gboolean {
    static_cast<DocumentPrinter*>(self)->updateProgress();
    return G_SOURCE_CONTINUE;
  };
  const guint clock = g_timeout_add(kProgressInterval, +tick, this);
  while (!isSent_)
    gtk_main_iteration();
  g_source_remove(clock);
  gtk_widget_destroy(progressWindow_.get());
  progressWindow_.reset();
  if (failure_.empty()) return kDone;
  showFailure(name, failure_);
  return kTrouble;
}

void DocumentPrinter::sent(GtkPrintJob*, gpointer self, const GError* error) {
  auto& printer = *static_cast<DocumentPrinter*>(self);
  if (error != nullptr) printer.failure_ = shown(error->message);
  printer.isSent_ = true;
}

void DocumentPrinter::showProgress(const std::string& printer) {
  progressWindow_ = shareGObject(gtk_window_new(GTK_WINDOW_TOPLEVEL));
  auto* window = GTK_WINDOW(progressWindow_.get());
  gtk_window_set_title(window, document_.defaultTitle().c_str());
  gtk_window_set_deletable(window, FALSE);
  gtk_container_set_border_width(GTK_CONTAINER(window), 2 * kSpacing);
  GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, kSpacing);
  const std::string text =
      translated("Sending %s to %s…", document_.defaultTitle(), shown(printer));
  gtk_container_add(GTK_CONTAINER(box), gtk_label_new(text.c_str()));
  progressBar_ = gtk_progress_bar_new();
  gtk_container_add(GTK_CONTAINER(box), progressBar_);
  gtk_container_add(GTK_CONTAINER(window), box);
  gtk_widget_show_all(progressWindow_.get());
}

// The job reads the document through our file, whose place tells how far it is.
void DocumentPrinter::updateProgress() {
  const off_t place = lseek(file_, 0, SEEK_CUR);
  const auto size = static_cast<double>(document_.size());
  if (place <= 0 || size <= 0) {
    gtk_progress_bar_pulse(GTK_PROGRESS_BAR(progressBar_));
  } else {
    gtk_progress_bar_set_fraction(GTK_PROGRESS_BAR(progressBar_),
                                  std::min(1.0, static_cast<double>(place) / size));
  }
}

void DocumentPrinter::showFailure(const std::string& printer, const std::string& reason) {
  GtkWidget* notice = gtk_message_dialog_new(
      nullptr, GTK_DIALOG_MODAL, GTK_MESSAGE_ERROR, GTK_BUTTONS_CLOSE, "%s",
      translated("%s could not be sent to %s.", document_.defaultTitle(), shown(printer)).c_str());
  gtk_message_dialog_format_secondary_text(
      GTK_MESSAGE_DIALOG(notice), "%s",
      translated("The print server says: %s\nChoose another printer, or try again when the server "
                 "is working.",
                 reason)
          .c_str());
  gtk_dialog_run(GTK_DIALOG(notice));
  gtk_widget_destroy(notice);
}

}  // namespace publishing
