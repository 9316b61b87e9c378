// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtPrintQuestions.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "base/Translation.h"
#include "shells/qt/QtAlertPanel.h"
#include "shells/qt/QtText.h"

namespace publishing {

bool isAnsweredWith(QWidget* parent, const HostMessage& question, const std::string& goOn,
                    const std::string& back, DefaultAnswer byDefault) {
  const QPointer<QMessageBox> box = makeMessageBox(parent, question.title, question.text);
  auto* goesOn = box->addButton(withMnemonic(goOn), QMessageBox::AcceptRole);
  auto* goesBack = box->addButton(withMnemonic(back), QMessageBox::RejectRole);
  box->setDefaultButton(byDefault == DefaultAnswer::GoOn ? goesOn : goesBack);
  box->setEscapeButton(goesBack);
  box->exec();
  if (box == nullptr) return false;
  const bool isGoingOn = box->clickedButton() == goesOn;
  delete box.data();
  return isGoingOn;
}

void tellProblem(QWidget* parent, const std::string& problem) {
  const QPointer<QMessageBox> box = makeMessageBox(parent, problem, {});
  box->setDefaultButton(
      box->addButton(withMnemonic(translated("_Close")), QMessageBox::RejectRole));
  box->exec();
  delete box.data();
}

}  // namespace publishing
