// SPDX-License-Identifier: Apache-2.0
#include "shells/gtk/dialog/DialogPage.h"

#include <utility>
#include <vector>

#include "base/Translation.h"
#include "shells/DisplayText.h"
#include "shells/Guarded.h"
#include "shells/gtk/LineHeight.h"
#include "shells/gtk/Toolkit.h"

namespace publishing {
namespace {

constexpr const char* kMessage = "message";
constexpr const char* kPanel = "panel";
constexpr const char* kMark = " ✓";
constexpr int kSpacing = 12;
constexpr int kMessageWidth = 50;  // characters
constexpr int kSummaryLines = 4;

}  // namespace

DialogPage::DialogPage(const std::string& name, std::function<void()> help,
                       std::function<std::vector<GtkWidget*>()> makeButtons)
    : content_(shareGObject(gtk_stack_new())),
      label_(shareGObject(gtk_label_new(displayText(name).c_str()))),
      name_(displayText(name)),
      help_(std::move(help)),
      makeButtons_(std::move(makeButtons)) {
  const auto mapped = [](GtkWidget*, gpointer self) {
    guarded([&] {
      static_cast<DialogPage*>(self)->drawMessage();
      static_cast<DialogPage*>(self)->drawPanel();
    });
  };
  handlers_.connect(content(), "map", G_CALLBACK(+mapped), this);
  gtk_widget_show(content());
  gtk_widget_show(label());
}

void DialogPage::addMessage() {
  GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, kSpacing);
  gtk_widget_set_valign(box, GTK_ALIGN_CENTER);
  gtk_widget_set_halign(box, GTK_ALIGN_CENTER);
  toolkit::setMargins(box, 2 * kSpacing);
  spinner_ = gtk_spinner_new();
  message_ = gtk_label_new(nullptr);
  g_object_set(message_, "wrap", TRUE, nullptr);
  gtk_label_set_max_width_chars(GTK_LABEL(message_), kMessageWidth);
  gtk_label_set_justify(GTK_LABEL(message_), GTK_JUSTIFY_CENTER);
  gtk_label_set_selectable(GTK_LABEL(message_), TRUE);
  toolkit::append(GTK_BOX(box), spinner_);
  toolkit::append(GTK_BOX(box), message_);
  toolkit::showWithChildren(box);
  gtk_stack_add_named(GTK_STACK(content()), box, kMessage);
}

void DialogPage::addPanel() {
  panelBox_ = gtk_box_new(GTK_ORIENTATION_VERTICAL, kSpacing);
  toolkit::setMargins(panelBox_, kSpacing);
  sheets_ = std::make_unique<SheetsView>(
      [this](const std::string& words) { say(words.empty() ? summaryText_ : words); });
  gtk_widget_set_vexpand(sheets_->widget(), TRUE);
  toolkit::append(GTK_BOX(panelBox_), sheets_->widget());
  toolkit::append(GTK_BOX(panelBox_), makeFoot());
  toolkit::showWithChildren(panelBox_);
  gtk_widget_hide(panelBox_);
  gtk_stack_add_named(GTK_STACK(content()), panelBox_, kPanel);
}

// What comes out in words, in as much room whatever it says, and the buttons.
GtkWidget* DialogPage::makeFoot() {
  GtkWidget* foot = gtk_box_new(GTK_ORIENTATION_VERTICAL, kSpacing);
  summary_ = gtk_label_new(nullptr);
  auto* summary = GTK_LABEL(summary_);
  g_object_set(summary, "wrap", TRUE, nullptr);
  gtk_label_set_ellipsize(summary, PANGO_ELLIPSIZE_END);
  gtk_label_set_xalign(summary, 0);
  gtk_label_set_yalign(summary, 0);
  gtk_label_set_selectable(summary, TRUE);
  gtk_widget_set_can_focus(summary_, FALSE);
  gtk_widget_set_size_request(summary_, -1, heightOfLines(summary_, kSummaryLines));
  gtk_style_context_add_class(gtk_widget_get_style_context(summary_), "dim-label");
  GtkWidget* help = gtk_button_new_with_mnemonic(translated("_Help").c_str());
  const auto clicked = [](GtkButton*, gpointer self) {
    guarded([&] { static_cast<DialogPage*>(self)->help_(); });
  };
  handlers_.connect(help, "clicked", G_CALLBACK(+clicked), this);
  toolkit::append(GTK_BOX(foot), summary_);
  GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, kSpacing);
  gtk_widget_set_halign(row, GTK_ALIGN_END);
  std::vector<GtkWidget*> buttons = makeButtons_();
  buttons.push_back(help);
  for (GtkWidget* button : buttons)
    toolkit::append(GTK_BOX(row), button);
  toolkit::append(GTK_BOX(foot), row);
  return foot;
}

void DialogPage::removePanel() {
  if (panel_ != nullptr) toolkit::remove(GTK_BOX(panelBox_), panel_);
  panel_ = nullptr;
}

void DialogPage::showMessage(const std::string& text, bool waiting) {
  showForNow(text, waiting);
  gtk_widget_set_sensitive(label(), FALSE);
  gtk_widget_set_tooltip_text(label(), text_.c_str());
}

void DialogPage::showForNow(const std::string& text, bool waiting) {
  removePanel();
  text_ = displayText(text);
  isWaiting_ = waiting;
  if (isInFront()) drawMessage();
}

void DialogPage::drawMessage() {
  if (panel_ != nullptr) return;
  if (message_ == nullptr) addMessage();
  gtk_label_set_text(GTK_LABEL(message_), text_.c_str());
  gtk_widget_set_visible(spinner_, isWaiting_);
  spin(isWaiting_);
  gtk_stack_set_visible_child_name(GTK_STACK(content()), kMessage);
}

void DialogPage::spin(bool spins) {
  if (spins) {
    gtk_spinner_start(GTK_SPINNER(spinner_));
  } else {
    gtk_spinner_stop(GTK_SPINNER(spinner_));
  }
}

void DialogPage::offerPanel(const std::string& name) {
  name_ = displayText(name);
  writeLabel();
  gtk_widget_set_sensitive(label(), TRUE);
  gtk_widget_set_tooltip_text(label(), nullptr);
}

void DialogPage::mark(bool isOn) {
  isMarked_ = isOn;
  writeLabel();
}

// The dialog is laid out anew for each new text.
void DialogPage::writeLabel() {
  const std::string text = isMarked_ ? name_ + kMark : name_;
  if (text == gtk_label_get_text(GTK_LABEL(label()))) return;
  gtk_label_set_text(GTK_LABEL(label()), text.c_str());
}

void DialogPage::showPanel(GtkWidget* view) {
  removePanel();
  if (panelBox_ == nullptr) addPanel();
  panel_ = view;
  toolkit::insertAfter(GTK_BOX(panelBox_), view, noticeBar_);
  if (spinner_ != nullptr) spin(false);
  if (isInFront()) drawPanel();
}

// Not before somebody looks here: the panel may need a taller dialog.
void DialogPage::drawPanel() {
  if (panel_ == nullptr) return;
  gtk_widget_show(panelBox_);
  gtk_stack_set_visible_child_name(GTK_STACK(content()), kPanel);
}

void DialogPage::addNotices() {
  noticeBar_ = gtk_info_bar_new();
  gtk_info_bar_set_message_type(GTK_INFO_BAR(noticeBar_), GTK_MESSAGE_WARNING);
  notices_ = gtk_label_new(nullptr);
  g_object_set(notices_, "wrap", TRUE, nullptr);
  gtk_label_set_max_width_chars(GTK_LABEL(notices_), kMessageWidth);
  gtk_label_set_xalign(GTK_LABEL(notices_), 0);
  gtk_label_set_selectable(GTK_LABEL(notices_), TRUE);
  toolkit::setInfoBarContent(GTK_INFO_BAR(noticeBar_), notices_);
  toolkit::showWithChildren(noticeBar_);
  toolkit::insertAfter(GTK_BOX(panelBox_), noticeBar_, nullptr);
}

void DialogPage::showNotices(const std::string& text) {
  if (notices_ == nullptr && text.empty()) return;
  if (notices_ == nullptr) addNotices();
  gtk_label_set_text(GTK_LABEL(notices_), displayText(text).c_str());
  gtk_widget_set_visible(noticeBar_, text.empty() ? FALSE : TRUE);
}

void DialogPage::setSummary(const std::string& text) {
  summaryText_ = text;
  say(text);
}

// A tooltip has room for what the lines have not.
void DialogPage::say(const std::string& text) {
  // GTK counts the lines of each paragraph.
  const bool hasParagraphs = text.find('\n') != std::string::npos;
  gtk_label_set_lines(GTK_LABEL(summary_), hasParagraphs ? kSummaryLines / 2 : kSummaryLines);
  gtk_label_set_text(GTK_LABEL(summary_), displayText(text).c_str());
  gtk_widget_set_tooltip_text(summary_, displayText(text).c_str());
}

void DialogPage::showSheets(const JobSheets& sheets) {
  sheets_->show(sheets);
}

}  // namespace publishing
