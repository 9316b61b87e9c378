// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtPresetMenu.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <utility>

#include <glib.h>

#include "base/Translation.h"
#include "printing/presets/Presets.h"
#include "shells/Guarded.h"
#include "shells/qt/QtText.h"
#include "shells/qt/dialog/QtPrintQuestions.h"

namespace publishing {
namespace {

constexpr int kWidestName = 40;  // characters

// A name in a menu, where "&" would mark a mnemonic.
QString itemOf(const std::string& name) {
  const QString label = shownLabel(name);
  return label.size() > kWidestName ? label.left(kWidestName - 1) + QString::fromUtf8("…") : label;
}

// The window that asks for a preset's name, until it is a sound one.
class NameQuestion final : public QDialog {
 public:
  explicit NameQuestion(QWidget* parent)
      : QDialog(parent), name_(new QLineEdit(this)), fault_(new QLabel(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(
        new QLabel(shownText(translated("Save these covers and inserts as a preset")), this));
    auto* row = new QFormLayout;
    row->addRow(withMnemonic(translated("_Name:")), name_);
    layout->addLayout(row);
    fault_->setTextFormat(Qt::PlainText);
    fault_->setWordWrap(true);
    fault_->setVisible(false);
    layout->addWidget(fault_);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(withMnemonic(translated("_Cancel")), QDialogButtonBox::RejectRole);
    buttons->addButton(withMnemonic(translated("_Save")), QDialogButtonBox::AcceptRole)
        ->setDefault(true);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  }

  [[nodiscard]] std::string name() const { return name_->text().trimmed().toStdString(); }

  void accept() override {
    guarded([this] {
      const auto fault = faultOfPresetName(name());
      if (!fault) return QDialog::accept();
      fault_->setText(shownText(*fault));
      fault_->setVisible(true);
      name_->setFocus();
    });
  }

 private:
  QLineEdit* name_;
  QLabel* fault_;
};

}  // namespace

QWidget* QtPresetMenu::makeButton(QWidget* parent) {
  button_ = new QPushButton(withMnemonic(translated("Prese_ts")), parent);
  button_->setObjectName("Presets");
  button_->setAutoDefault(false);
  button_->setToolTip(shownTooltip(translated("Covers and inserts kept under a name")));
  auto* menu = new QMenu(button_);
  menu->setToolTipsVisible(true);
  QObject::connect(menu, &QMenu::aboutToShow, button_,
                   [this, menu] { guarded([&] { fill(*menu); }); });
  button_->setMenu(menu);
  return button_;
}

// The menu is closed by the time that a question is asked.
void QtPresetMenu::addItem(QMenu& menu, const QString& label, std::function<void()> chosen) const {
  QAction* item = menu.addAction(label);
  QObject::connect(
      item, &QAction::triggered, button_, [call = std::move(chosen)] { guarded(call); },
      Qt::QueuedConnection);
}

void QtPresetMenu::fill(QMenu& menu) {
  qDeleteAll(menu.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
  menu.clear();
  const Presets::Listing listing = Presets().list();
  for (const std::string& warning : listing.warnings)
    g_message("%s", warning.c_str());
  auto* deletions = new QMenu(withMnemonic(translated("_Delete")), &menu);
  for (const StoredPreset& stored : listing.presets) {
    const std::string name = stored.preset.name;
    addItem(menu, itemOf(name), [this, name] { host_.usePreset(name, *this); });
    menu.actions().constLast()->setToolTip(shownTooltip(name));
    if (stored.isShared) continue;
    addItem(*deletions, itemOf(name), [this, name] { host_.deletePreset(name, *this); });
  }
  if (listing.presets.empty()) {
    menu.addAction(shownLabel(translated("No presets yet")))->setEnabled(false);
  }
  menu.addSeparator();
  addItem(menu, withMnemonic(translated("_Save as…")), [this] { host_.savePreset(*this); });
  menu.addMenu(deletions)->setEnabled(!deletions->isEmpty());
}

// Nothing of this object may be used after a window was open: it may be gone with the dialog.
std::optional<std::string> QtPresetMenu::askName() {
  const QPointer<NameQuestion> question = new NameQuestion(button_->window());
  const bool isNamed = question->exec() == QDialog::Accepted;
  if (question == nullptr) return std::nullopt;
  const std::string name = question->name();
  delete question.data();
  return isNamed ? std::optional(name) : std::nullopt;
}

bool QtPresetMenu::confirmsReplacing(const std::string& name) {
  return isAnsweredWith(button_->window(),
                        {translated("There is a preset named “%s” already. Replace it?", name), ""},
                        translated("_Replace"), translated("_Cancel"), DefaultAnswer::GoBack);
}

bool QtPresetMenu::confirmsDeleting(const std::string& name) {
  return isAnsweredWith(button_->window(), {translated("Delete the preset “%s”?", name), ""},
                        translated("_Delete"), translated("_Cancel"), DefaultAnswer::GoBack);
}

void QtPresetMenu::tell(const std::string& problem) {
  tellProblem(button_->window(), problem);
}

}  // namespace publishing
