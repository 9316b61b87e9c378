// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtPrintDialogHost.h"

#include <QEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <limits>
#include <utility>

#include "Publishing/global.h"
#include "base/Translation.h"
#include "shells/Guarded.h"
#include "shells/HostMessages.h"
#include "shells/qt/QtBundle.h"
#include "shells/qt/QtText.h"
#include "shells/qt/dialog/QtJobOptions.h"
#include "shells/qt/dialog/QtPrintQuestions.h"

namespace publishing {
namespace {

constexpr DialogPlaces kPlaces = {
    N_("Needs two-sided printing: see the “Options” tab."),
    N_("Needs the pages in order: switch off “Reverse” on the “Copies” tab."),
    N_("Needs one page per side: see “Pages per sheet” in “Properties”."),
    N_("The printer %s is not responding. You can choose covers and inserts once it does; other "
       "printers are listed above.")};

// The window that Qt makes when the user first opens the printer's properties.
constexpr const char* kProperties = "QPrintPropertiesDialog";

// The dialog's own buttons whose changes the panel follows.
constexpr const char* kFollowed[] = {"noDuplex", "duplexLong", "duplexShort", "reverse"};

template <class Widget>
Widget* find(const QObject* dialog, const char* name = "") {
  return dialog->findChild<Widget*>(QLatin1String(name));
}

}  // namespace

bool QtPrintDialogHost::Parts::areComplete() const {
  return tabs != nullptr && printers != nullptr && buttons != nullptr;
}

QtPrintDialogHost::Parts QtPrintDialogHost::partsOf(const QPrintDialog* dialog) {
  return {find<QTabWidget>(dialog, "tabs"), find<QComboBox>(dialog, "printers"),
          find<QDialogButtonBox>(dialog)};
}

QtPrintDialogHost* QtPrintDialogHost::of(const QPrintDialog* dialog) {
  for (QObject* child : dialog->findChildren<QObject*>()) {
    if (auto* host = dynamic_cast<QtPrintDialogHost*>(child)) return host;
  }
  return nullptr;
}

bool QtPrintDialogHost::attach(QPrintDialog* dialog) {
  if (of(dialog) != nullptr) return true;
  HostRules rules = HostRules::load();
  if (!rules.wantPanel()) return false;
  const Parts parts = partsOf(dialog);
  if (!parts.areComplete()) {
    g_message("This print dialog of Qt %s is not known; it stays without the panel", qVersion());
    return false;
  }
  // The dialog's once all is well; whatever is deleted takes itself out of its parent.
  auto page = std::make_unique<QtDialogPage>(parts.tabs, translated(kPublishingPanelNameKey));
  auto* host = new QtPrintDialogHost(dialog, parts, std::move(rules), page.get());
  host->connectDialog();
  host->followPrinter();
  static_cast<void>(page.release());
  return true;
}

QtPrintDialogHost::QtPrintDialogHost(QPrintDialog* dialog, const Parts& parts, HostRules rules,
                                     QtDialogPage* page)
    : QObject(page),
      dialog_(dialog),
      parts_(parts),
      rules_(std::move(rules)),
      page_(page),
      options_(dialog),
      host_(*this),
      presets_(host_),
      reset_(host_),
      remember_(host_) {
  page->setHandlers({[this] { host_.showHelp(); }, [this] { host_.refresh(); },
                     [this](QWidget* parent) {
                       return std::vector{remember_.makeBox(parent), reset_.makeButton(parent),
                                          presets_.makeButton(parent)};
                     }});
  dialog->setOptionTabs({page});
}

void QtPrintDialogHost::connectDialog() {
  dialog_->installEventFilter(this);
  connect(parts_.printers, qOverload<int>(&QComboBox::currentIndexChanged), this,
          [this] { guarded([this] { followPrinter(); }); });
  connect(parts_.buttons, &QDialogButtonBox::clicked, this,
          [this](QAbstractButton* button) { guarded([&] { clicked(button); }); });
  for (const char* name : kFollowed) {
    if (auto* button = find<QAbstractButton>(dialog_, name)) {
      connect(button, &QAbstractButton::toggled, this, [this] { refreshSoon(); });
    }
  }
  // Qt's own slot, which comes first, returns when the window is closed.
  if (auto* properties = find<QAbstractButton>(dialog_, "properties")) {
    connect(properties, &QAbstractButton::clicked, this, [this] { refreshSoon(); });
  }
}

bool QtPrintDialogHost::eventFilter(QObject* object, QEvent* event) {
  if (object == dialog_) guarded([&] { dialogEvent(*event); });
  return false;
}

void QtPrintDialogHost::dialogEvent(const QEvent& event) {
  if (event.type() == QEvent::ChildPolished) {
    const auto& added = static_cast<const QChildEvent&>(event);
    if (added.child()->inherits(kProperties)) options_.prepareProperties();
  } else if (event.type() == QEvent::Show && !event.spontaneous()) {
    toHandOver_.reset();
    refreshSoon();
  } else if (event.type() == QEvent::Hide && !event.spontaneous()) {
    giveOptions();
  }
}

// Qt has set the printer up by now, and the program is not yet told.
void QtPrintDialogHost::giveOptions() {
  const auto options = std::exchange(toHandOver_, std::nullopt);
  if (options && dialog_->result() == QDialog::Accepted) {
    giveJobOptions(*dialog_->printer(), *options);
  }
}

void QtPrintDialogHost::clicked(QAbstractButton* button) {
  if (parts_.buttons->buttonRole(button) != QDialogButtonBox::AcceptRole) return;
  const QPointer<QDialogButtonBox> buttons = parts_.buttons;
  if (host_.mayPrint() || buttons == nullptr) return;
  // "accepted" follows at once; the program and the dialog hear nothing of it.
  buttons->blockSignals(true);
  QTimer::singleShot(0, buttons, [buttons] { buttons->blockSignals(false); });
}

void QtPrintDialogHost::followPrinter() {
  options_.forget();
  host_.followPrinter();
}

void QtPrintDialogHost::refreshSoon() {
  if (std::exchange(isRefreshing_, true)) return;
  QTimer::singleShot(0, this, [this] {
    isRefreshing_ = false;
    guarded([this] { host_.refresh(); });
  });
}

std::optional<ToolkitDialog::Selection> QtPrintDialogHost::selection() const {
  const QString printer = parts_.printers->currentText();
  if (printer.isEmpty()) return std::nullopt;
  const auto* file = find<QLineEdit>(dialog_, "filename");
  return Selection{printer.toStdString(), file != nullptr && file->isEnabled()};
}

// Programs that know how many pages there are say so, since the user may choose among them.
std::optional<int> QtPrintDialogHost::documentPages() const {
  const bool isKnown = dialog_->minPage() <= 1 && dialog_->maxPage() >= 1 &&
                       dialog_->maxPage() < std::numeric_limits<int>::max();
  return isKnown ? std::optional(dialog_->maxPage()) : std::nullopt;
}

void QtPrintDialogHost::setSummary(const std::string& text) {
  page_->setSummary(text);
  reset_.update();
  remember_.update();
}

bool QtPrintDialogHost::showChoice(const std::string& option, const std::string& choice, bool) {
  return options_.show(option, choice);
}

const DialogPlaces& QtPrintDialogHost::places() const {
  return kPlaces;
}

void QtPrintDialogHost::openPrinter(const std::string& queue, Opened opened,
                                    std::function<void()> late) {
  fetch_ = std::make_unique<QtPrinterFetch>(queue, rules_.printerSeconds, std::move(opened),
                                            std::move(late));
}

std::shared_ptr<HostBundle> QtPrintDialogHost::makeBundle() {
  return std::make_shared<QtBundle>(rules_.dataFolder);
}

void QtPrintDialogHost::showMessage(const std::string& text, Waiting waiting) {
  if (waiting == Waiting::Asking) {
    page_->showForNow(text, true);
  } else {
    page_->showMessage(text, waiting == Waiting::Late);
  }
}

void QtPrintDialogHost::showPanel(View& view) {
  page_->showPanel(dynamic_cast<QtView&>(view).widget());
}

// The tabs are folded away until the user asks for them.
void QtPrintDialogHost::bringTabToFront() {
  page_->bringToFront();
  if (page_->isVisible()) return;
  for (QAbstractButton* button : parts_.buttons->buttons()) {
    if (parts_.buttons->buttonRole(button) == QDialogButtonBox::ResetRole) button->click();
  }
}

void QtPrintDialogHost::pressPrint() {
  QTimer::singleShot(0, this, [this] {
    for (QAbstractButton* button : parts_.buttons->buttons()) {
      if (parts_.buttons->buttonRole(button) == QDialogButtonBox::AcceptRole) button->click();
    }
  });
}

bool QtPrintDialogHost::insistsOnConflicts(const std::vector<Conflict>& conflicts) {
  return isAnsweredWith(dialog_, conflictMessage(conflicts), translated(kPrintAnyway),
                        translated(kGoBack), DefaultAnswer::GoBack);
}

bool QtPrintDialogHost::printsWithout(const std::string& losses) {
  return isAnsweredWith(dialog_, lossMessage(losses), translated(kPrintWithout),
                        translated(kGoBack), DefaultAnswer::GoOn);
}

void QtPrintDialogHost::sayHelpIsMissing() {
  const HostMessage message = missingHelpMessage(rules_.dataFolder);
  QMessageBox* notice = makeMessageBox(dialog_, message.title, message.text);
  notice->setIcon(QMessageBox::Information);
  notice->setStandardButtons(QMessageBox::Close);
  notice->setAttribute(Qt::WA_DeleteOnClose);
  notice->open();
}

}  // namespace publishing
