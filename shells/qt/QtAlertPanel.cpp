// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/QtAlertPanel.h"

#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "shells/qt/QtText.h"

namespace publishing {

QMessageBox* makeMessageBox(QWidget* parent, const std::string& title, const std::string& text) {
  auto* box = new QMessageBox(parent);
  box->setIcon(QMessageBox::Warning);
  box->setText(shownText(title));
  box->setInformativeText(shownText(text));
  // What looks like markup would be taken for it.
  for (QLabel* label : box->findChildren<QLabel*>())
    label->setTextFormat(Qt::PlainText);
  return box;
}

void QtAlertPanel::runAlertPanel(const std::string& title, const std::string& message,
                                 const std::string& defaultButton) {
  QWidget* window = view_ != nullptr ? view_->widget()->window() : nullptr;
  const std::string text = detail_.empty() ? message : message + "\n\n" + detail_;
  const QPointer<QMessageBox> alert = makeMessageBox(window, title, text);
  alert->setDefaultButton(alert->addButton(shownLabel(defaultButton), QMessageBox::AcceptRole));
  alert->exec();
  delete alert.data();
}

}  // namespace publishing
