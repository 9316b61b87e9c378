// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtSheetsView.h"

#include <QFocusEvent>
#include <QFontInfo>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPicture>
#include <QScreen>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Translation.h"
#include "shells/Guarded.h"
#include "shells/qt/QtText.h"
#include "shells/qt/dialog/QtSheetsPainter.h"

namespace publishing {
namespace {

// The screen's height that the rest of the print dialog takes.
constexpr double kHeightOfOthers = 690;

int whole(double pixels) {
  return static_cast<int>(std::ceil(pixels));
}

QRect rectangleOf(const SheetsLayout::Place& place) {
  return QRectF(place.x, place.y, place.width, place.height).toAlignedRect();
}

std::optional<SheetsLayout::Key> keyOf(int key) {
  switch (key) {
    case Qt::Key_Home:
      return SheetsLayout::Key::Home;
    case Qt::Key_End:
      return SheetsLayout::Key::End;
    case Qt::Key_Left:
      return SheetsLayout::Key::Left;
    case Qt::Key_Right:
      return SheetsLayout::Key::Right;
    default:
      return std::nullopt;
  }
}

}  // namespace

class QtSheetsView::Area final : public QLabel {
 public:
  explicit Area(QtSheetsView* view) : view_(*view) {
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignLeft | Qt::AlignTop | Qt::AlignAbsolute);
  }

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ToolTip) {
      guarded([&] { showWords(*static_cast<QHelpEvent*>(event)); });
      return true;
    }
    return QLabel::event(event);
  }

  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    const auto item = view_.layout_.current();
    if (!hasFocus() || !item) return;
    QPainter painter(this);
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rectangleOf(view_.layout_.placeOf(*item));
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
  }

  void keyPressEvent(QKeyEvent* event) override {
    const auto key = keyOf(event->key());
    const auto item = key ? view_.layout_.itemBy(*key) : std::nullopt;
    if (!item) return QLabel::keyPressEvent(event);
    guarded([&] { view_.goTo(item); });
  }

  void mousePressEvent(QMouseEvent* event) override {
    guarded([&] { view_.goTo(view_.layout_.itemAt(event->pos().x(), event->pos().y())); });
  }

  void focusInEvent(QFocusEvent* event) override {
    QLabel::focusInEvent(event);
    guarded([&] { view_.goTo(view_.layout_.current().value_or(0)); });
  }

  void focusOutEvent(QFocusEvent* event) override {
    QLabel::focusOutEvent(event);
    guarded([&] {
      view_.describe();
      view_.say_({});
    });
    update();
  }

 private:
  void showWords(const QHelpEvent& event) {
    const auto item = view_.layout_.itemAt(event.pos().x(), event.pos().y());
    if (!item) return QToolTip::hideText();
    const QString words = shownTooltip(view_.layout_.wordsOf(*item));
    QToolTip::showText(event.globalPos(), words, this, rectangleOf(view_.layout_.placeOf(*item)));
  }

  QtSheetsView& view_;
};

QtSheetsView::QtSheetsView(QWidget* parent, std::function<void(const std::string&)> say)
    : QScrollArea(parent), say_(std::move(say)), area_(new Area(this)) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setWidget(area_);
  // As the tab, and not as a field of its own.
  setBackgroundRole(QPalette::NoRole);
  viewport()->setAutoFillBackground(false);
  area_->setAutoFillBackground(false);
}

// While it has the keyboard's focus, the area would lose it in the base class's destructor and tell
// a view that is no more.
QtSheetsView::~QtSheetsView() {
  delete area_;
}

QLabel* QtSheetsView::area() const {
  return area_;
}

void QtSheetsView::showSheets(JobSheets job) {
  layout_.show(std::move(job));
  describe();
  layOut();
}

void QtSheetsView::describe() {
  area_->setAccessibleName(shownText(translated("Picture of the sheets")));
  area_->setAccessibleDescription(shownText(layout_.sentence()));
}

// Without a place in a window yet, the picture waits for it.
void QtSheetsView::layOut() {
  if (!isVisible()) return;
  const double fontScale = SheetsLayout::textScaleOf(QFontInfo(font()).pixelSize());
  const double height = SheetsLayout::heightOn(window()->screen()->availableGeometry().height(),
                                               kHeightOfOthers, fontScale);
  setMinimumHeight(whole(height));
  const int width = viewport()->width();
  layout_.layOut({static_cast<double>(width), height, fontScale, isRightToLeft()});
  QPicture picture;
  {
    QPainter painter(&picture);
    painter.translate(layout_.left(), 0);
    painter.scale(layout_.scale(), layout_.scale());
    paintSheets(painter, *area_, layout_.picture());
  }
  picture.setBoundingRect(QRect(0, 0, width, whole(layout_.height())));
  area_->setPicture(picture);
}

void QtSheetsView::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  guarded([this] { layOut(); });
}

void QtSheetsView::showEvent(QShowEvent* event) {
  QScrollArea::showEvent(event);
  guarded([this] { layOut(); });
}

void QtSheetsView::changeEvent(QEvent* event) {
  QScrollArea::changeEvent(event);
  const QEvent::Type type = event->type();
  if (type == QEvent::FontChange || type == QEvent::PaletteChange ||
      type == QEvent::LayoutDirectionChange || type == QEvent::StyleChange) {
    guarded([this] { layOut(); });
  }
}

void QtSheetsView::goTo(std::optional<std::size_t> item) {
  if (!layout_.goTo(item)) return;
  const std::string words = layout_.wordsOf(*item);
  // A screen reader reads the new name of what has the focus.
  area_->setAccessibleName(shownText(words));
  const QRect place = rectangleOf(layout_.placeOf(*item));
  ensureVisible(place.center().x(), place.center().y(), 0, place.height() / 2);
  area_->update();
  say_(words);
}

}  // namespace publishing
