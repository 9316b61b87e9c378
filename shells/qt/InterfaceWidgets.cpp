// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/InterfaceWidgets.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <algorithm>
#include <stdexcept>

#include "shells/qt/QtControls.h"
#include "shells/qt/QtText.h"

namespace publishing {
namespace {

constexpr int kMenuWidth = 20;  // characters; longer titles are cut while the menu is closed

QString labelOf(const InterfaceObject& object) {
  const std::string label = object.property("label").toStdString();
  return object.isTrue("use-underline") ? withMnemonic(label) : shownLabel(label);
}

// Space around the widget. Qt turns layouts around for languages that are written from right to
// left, but not margins.
void setMargins(QWidget& widget, const InterfaceObject& object) {
  const int border = object.number("border-width");
  const int start = border + object.number("margin-start");
  const bool isRightToLeft = widget.layoutDirection() == Qt::RightToLeft;
  widget.setContentsMargins(isRightToLeft ? border : start, border + object.number("margin-top"),
                            isRightToLeft ? start : border,
                            border + object.number("margin-bottom"));
}

Qt::Alignment alignmentOf(const InterfaceObject& object) {
  Qt::Alignment alignment;
  if (object.property("xalign") == "1") alignment |= Qt::AlignRight;
  if (object.property("valign") == "start") alignment |= Qt::AlignTop;
  return alignment;
}

// A tab does not ask how high its text becomes at the width that it gets. So the text gets a width
// to begin with, and the height that it needs there.
void wrap(QLabel& label, int characters) {
  label.setWordWrap(true);
  const int width = characters * label.fontMetrics().averageCharWidth();
  label.setMinimumSize(width, label.heightForWidth(width));
}

// A label takes its mnemonic only with the control that it is for.
QWidget* makeLabel(const InterfaceObject& object) {
  const bool isForControl = !object.property("mnemonic-widget").isEmpty();
  auto* label = new QLabel(isForControl ? labelOf(object) : object.property("label"));
  label->setTextFormat(Qt::PlainText);
  const auto& styles = object.styles;
  if (std::find(styles.begin(), styles.end(), "dim-label") != styles.end()) {
    label->setForegroundRole(QPalette::PlaceholderText);
    // Qt 5 does not paint a text in this colour at all unless it can be selected.
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  if (object.isTrue("wrap")) wrap(*label, object.number("max-width-chars"));
  setMargins(*label, object);
  if (object.property("yalign") == "0") label->setAlignment(Qt::AlignLeading | Qt::AlignTop);
  if (const int lines = object.number("lines"); lines > 0) {
    const QMargins margins = label->contentsMargins();
    label->setFixedHeight(lines * label->fontMetrics().lineSpacing() + margins.top() +
                          margins.bottom());
  }
  return label;
}

QWidget* makeComboBox() {
  auto* comboBox = new QComboBox;
  comboBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  comboBox->setMinimumContentsLength(kMenuWidth);
  comboBox->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  return comboBox;
}

QWidget* makeEntry(const InterfaceObject& object) {
  auto* field = new QLineEdit;
  field->setPlaceholderText(object.property("placeholder-text"));
  return field;
}

// What is no widget of its own.
bool isWidget(const InterfaceObject& object) {
  return object.role.isEmpty() && object.type != "GtkCellRendererText";
}

}  // namespace

InterfaceWidgets::InterfaceWidgets(const InterfaceObject& object) : root_(make(object, nullptr)) {
  relate();
}

QWidget* InterfaceWidgets::make(const InterfaceObject& object, const InterfaceObject* parent) {
  QWidget* widget = makeOne(object);
  widget->setObjectName(object.id);
  for (const InterfaceObject& child : object.children) {
    if (child.role == "accessible") {
      widget->setAccessibleName(child.property("AtkObject::accessible-name"));
    }
  }
  made_.push_back({&object, parent, widget});
  return widget;
}

QWidget* InterfaceWidgets::makeOne(const InterfaceObject& object) {
  if (object.type == "GtkBox") return makeBox(object);
  if (object.type == "GtkGrid") return makeGrid(object);
  if (object.type == "GtkNotebook") return makeNotebook(object);
  if (object.type == "GtkLabel") return makeLabel(object);
  if (object.type == "GtkCheckButton") return new TwoStateBox(labelOf(object));
  if (object.type == "GtkRadioButton") return new QRadioButton(labelOf(object));
  if (object.type == "GtkComboBox") return makeComboBox();
  if (object.type == "GtkEntry") return makeEntry(object);
  throw std::runtime_error("no widget for the type " + object.type.toStdString());
}

QWidget* InterfaceWidgets::makeBox(const InterfaceObject& object) {
  auto box = std::make_unique<QWidget>();
  const bool isVertical = object.property("orientation") == "vertical";
  auto* layout =
      new QBoxLayout(isVertical ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, box.get());
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(object.number("spacing"));
  setMargins(*box, object);
  auto* cells = new QButtonGroup(box.get());
  for (const InterfaceObject& child : object.children) {
    if (!isWidget(child)) continue;
    QWidget* widget = make(child, &object);
    layout->addWidget(widget, child.isTrue("vexpand") ? 1 : 0, alignmentOf(child));
    auto* cell = qobject_cast<QRadioButton*>(widget);
    if (cell != nullptr) cells->addButton(cell, static_cast<int>(cells->buttons().size()));
  }
  return box.release();
}

QWidget* InterfaceWidgets::makeGrid(const InterfaceObject& object) {
  auto grid = std::make_unique<QWidget>();
  auto* layout = new QGridLayout(grid.get());
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setHorizontalSpacing(object.number("column-spacing"));
  layout->setVerticalSpacing(object.number("row-spacing"));
  setMargins(*grid, object);
  bool isFilled = false;
  for (const InterfaceObject& child : object.children) {
    if (!isWidget(child)) continue;
    const int column = child.packing.at("left-attach").toInt();
    layout->addWidget(make(child, &object), child.packing.at("top-attach").toInt(), column,
                      alignmentOf(child));
    if (child.isTrue("hexpand")) layout->setColumnStretch(column, 1);
    isFilled = isFilled || child.isTrue("hexpand");
  }
  if (!isFilled) layout->setColumnStretch(layout->columnCount(), 1);
  return grid.release();
}

// Pages and their labels take turns.
QWidget* InterfaceWidgets::makeNotebook(const InterfaceObject& object) {
  auto tabs = std::make_unique<QTabWidget>();
  QWidget* page = nullptr;
  for (const InterfaceObject& child : object.children) {
    if (child.role != "tab") {
      page = make(child, &object);
      if (auto* box = qobject_cast<QBoxLayout*>(page->layout())) box->addStretch(1);
    } else {
      tabs->addTab(page, labelOf(child));
    }
  }
  return tabs.release();
}

QButtonGroup* InterfaceWidgets::cellsIn(QWidget* container) const {
  return container->findChild<QButtonGroup*>(QString(), Qt::FindDirectChildrenOnly);
}

QWidget* InterfaceWidgets::widgetOf(const QString& id) const {
  const auto found = std::find_if(made_.begin(), made_.end(),
                                  [&](const Made& made) { return made.object->id == id; });
  return found != made_.end() && !id.isEmpty() ? found->widget : nullptr;
}

// Which label belongs to which control, and what accessibility tools say of it. They are told of a
// label's control by Qt, and take a menu's choice for its name as long as it has no other.
void InterfaceWidgets::relate() {
  for (const auto& [object, parent, widget] : made_) {
    QWidget* control = widgetOf(object->property("mnemonic-widget"));
    if (auto* label = qobject_cast<QLabel*>(widget); label != nullptr && control != nullptr) {
      label->setBuddy(control);
    }
  }
  for (const auto& [object, parent, widget] : made_) {
    for (const auto& [kind, target] : object->relations) {
      const auto* label = qobject_cast<QLabel*>(widgetOf(target));
      if (label == nullptr || label->buddy() == widget) continue;
      const QString text = withoutMnemonic(label->text());
      if (kind == "labelled-by") widget->setAccessibleName(text);
      if (kind == "described-by") widget->setAccessibleDescription(text);
    }
  }
}

}  // namespace publishing
