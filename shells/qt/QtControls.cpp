// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/QtControls.h"

#include <QAbstractButton>
#include <QStandardItemModel>

#include "shells/qt/QtText.h"

namespace publishing {

void TwoStateBox::nextCheckState() {
  setCheckState(checkState() == Qt::Unchecked ? Qt::Checked : Qt::Unchecked);
}

QtCheckBox::QtCheckBox(TwoStateBox* box) : QtControl(box), box_(box) {
  QObject::connect(box, &QAbstractButton::toggled, receiver(), [this] {
    if (isOwn()) return;
    guarded([this] {
      if (action_) action_(*this);
    });
    tellUserChanged();
  });
}

int QtCheckBox::state() const {
  if (box_->checkState() == Qt::PartiallyChecked) return -1;
  return box_->isChecked() ? 1 : 0;
}

void QtCheckBox::setState(int state) {
  const Own own(*this);
  const auto shown = state == 0 ? Qt::Unchecked : Qt::Checked;
  box_->setCheckState(state < 0 ? Qt::PartiallyChecked : shown);
}

QtRadioMatrix::QtRadioMatrix(QWidget* container, QButtonGroup* cells)
    : QtControl(container),
      cells_(cells),
      actions_(static_cast<std::size_t>(cells->buttons().size())) {
  // A click on the selected cell changes nothing and is a gesture all the same.
  for (QAbstractButton* cell : cells->buttons()) {
    const auto column = static_cast<std::size_t>(cells->id(cell));
    QObject::connect(cell, &QAbstractButton::toggled, receiver(), [this, column](bool isOn) {
      if (isOn && !isOwn()) send(column);
    });
    QObject::connect(cell, &QAbstractButton::pressed, receiver(),
                     [this, cell] { wasOnWhenPressed_ = cell->isChecked(); });
    QObject::connect(cell, &QAbstractButton::clicked, receiver(), [this, column] {
      if (wasOnWhenPressed_) send(column);
    });
  }
}

void QtRadioMatrix::send(std::size_t column) {
  guarded([&] {
    if (actions_.at(column)) actions_.at(column)(*this);
  });
  tellUserChanged();
}

std::int64_t QtRadioMatrix::selectedColumn() const {
  return cells_->checkedId();
}

void QtRadioMatrix::selectCellAtRow(std::int64_t row, std::int64_t column) {
  const Own own(*this);
  if (row == 0 && column >= 0 && column < cells_->buttons().size()) {
    cells_->button(static_cast<int>(column))->setChecked(true);
  } else {
    deselectAllCells();
  }
}

// An exclusive group keeps its last cell on.
void QtRadioMatrix::deselectAllCells() {
  QAbstractButton* selected = cells_->checkedButton();
  if (!allowsEmptySelection_ || selected == nullptr) return;
  const Own own(*this);
  cells_->setExclusive(false);
  selected->setChecked(false);
  cells_->setExclusive(true);
}

void QtRadioMatrix::setAction(const QAbstractButton* cell, Action action) {
  const int column = cells_->id(const_cast<QAbstractButton*>(cell));
  if (column >= 0) actions_.at(static_cast<std::size_t>(column)) = std::move(action);
}

QtPopUpButton::QtPopUpButton(QComboBox* comboBox) : QtControl(comboBox), comboBox_(comboBox) {
  QObject::connect(comboBox, qOverload<int>(&QComboBox::currentIndexChanged), receiver(), [this] {
    if (!isOwn()) tellUserChanged();
  });
}

int QtPopUpButton::rowOf(std::int64_t index) const {
  const auto row = static_cast<int>(index);
  return line_ && row >= *line_ ? row + 1 : row;
}

QStandardItem* QtPopUpButton::item(std::int64_t index) const {
  if (index < 0 || index >= numberOfItems()) return nullptr;
  // The model that every combo box has at first.
  return qobject_cast<QStandardItemModel*>(comboBox_->model())->item(rowOf(index));
}

void QtPopUpButton::removeAllItems() {
  const Own own(*this);
  titles_.clear();
  line_.reset();
  comboBox_->clear();
}

void QtPopUpButton::addItemsWithTitles(const std::vector<std::string>& titles) {
  const Own own(*this);
  const int selected = comboBox_->currentIndex();
  for (const std::string& title : titles) {
    titles_.push_back(title);
    comboBox_->addItem(shownText(title));
  }
  comboBox_->setCurrentIndex(selected);  // Qt selects the first item of an empty menu
}

std::int64_t QtPopUpButton::numberOfItems() const {
  return std::ssize(titles_);
}

std::string QtPopUpButton::itemTitleAtIndex(std::int64_t index) const {
  return titles_.at(static_cast<std::size_t>(index));
}

bool QtPopUpButton::isItemEnabledAtIndex(std::int64_t index) const {
  const QStandardItem* found = item(index);
  return found != nullptr && found->isEnabled();
}

void QtPopUpButton::setItemEnabledAtIndex(std::int64_t index, bool enabled) {
  if (QStandardItem* found = item(index)) found->setEnabled(enabled);
}

void QtPopUpButton::selectItemAtIndex(std::int64_t index) {
  const Own own(*this);
  const bool exists = index >= 0 && index < numberOfItems();
  comboBox_->setCurrentIndex(exists ? rowOf(index) : -1);
}

std::int64_t QtPopUpButton::indexOfSelectedItem() const {
  const int row = comboBox_->currentIndex();
  return line_ && row > *line_ ? row - 1 : row;
}

void QtPopUpButton::separateItem(std::int64_t index) {
  const Own own(*this);
  if (line_) comboBox_->removeItem(*line_);
  line_.reset();
  if (index <= 0 || index >= numberOfItems()) return;
  line_ = static_cast<int>(index);
  comboBox_->insertSeparator(*line_);
}

std::optional<std::string> QtPopUpButton::titleOfSelectedItem() const {
  const std::int64_t index = indexOfSelectedItem();
  return index >= 0 ? std::optional(itemTitleAtIndex(index)) : std::nullopt;
}

QtTabView::QtTabView(QTabWidget* tabs) : tabs_(tabs) {
  QObject::connect(tabs, &QTabWidget::currentChanged, &receiver_, [this] {
    guarded([this] {
      if (!isChanging_ && didSelect_) didSelect_();
    });
  });
}

std::int64_t QtTabView::numberOfTabViewItems() const {
  return tabs_->count();
}

std::string QtTabView::tabViewItemLabelAtIndex(std::int64_t index) const {
  return withoutMnemonic(tabs_->tabText(static_cast<int>(index))).toStdString();
}

void QtTabView::removeTabViewItemAtIndex(std::int64_t index) {
  if (index < 0 || index >= numberOfTabViewItems()) return;
  isChanging_ = true;
  tabs_->removeTab(static_cast<int>(index));
  isChanging_ = false;
}

void QtTabView::bringToFront(const QWidget* widget) {
  isChanging_ = true;
  for (int index = 0; index < tabs_->count(); ++index) {
    if (tabs_->widget(index)->isAncestorOf(widget)) tabs_->setCurrentIndex(index);
  }
  isChanging_ = false;
}

}  // namespace publishing
