// SPDX-License-Identifier: Apache-2.0
// The picture of the sheets in a window of Qt.
#include "shells/qt/dialog/QtSheetsView.h"

#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QFontInfo>
#include <algorithm>
#include <memory>

#include <gtest/gtest.h>

#include "tests/printing/SheetJobs.h"
#include "tests/support/QtStage.h"

namespace publishing {
namespace {

const Options kReport = kTwoSided + covers("2", "1") + inserts("0", "5,8");

class QtSheetsViewTest : public testing::Test {
 protected:
  QtSheetsViewTest() {
    view.resize(600, 300);
    view.show();
    QApplication::processEvents();
  }

  void show(const Options& options, std::optional<int> pages) {
    view.showSheets(sheetsOf(options, pages));
    QApplication::processEvents();
  }

  void tellFocus(QEvent::Type type) {
    QFocusEvent event(type);
    QApplication::sendEvent(view.area(), &event);
  }

  [[nodiscard]] const std::vector<PictureItem>& items() const {
    return view.sheets().picture().items;
  }

  [[nodiscard]] QPoint middleOf(std::size_t item) const {
    const SheetsLayout::Place place = view.sheets().placeOf(item);
    return QPointF(place.x + place.width / 2, place.y + place.height / 2).toPoint();
  }

  // Whether the paper's colour is painted in more than some pixels.
  [[nodiscard]] bool isPainted(PicturePaper paper) {
    const PictureColour colour = colourOf(PicturePaint::Paper, paper);
    const QImage image = view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        count += image.pixel(x, y) == qRgb(colour.red, colour.green, colour.blue) ? 1 : 0;
    return count > 50;
  }

  [[nodiscard]] QAccessibleInterface* accessible() const {
    return QAccessible::queryAccessibleInterface(view.area());
  }

  std::string said;
  QtSheetsView view{nullptr, [this](const std::string& words) { said = words; }};
};

TEST_F(QtSheetsViewTest, EveryPaperIsPaintedInItsColour) {
  show(kTwoSided, 8);
  EXPECT_FALSE(isPainted(PicturePaper::Cover));
  EXPECT_TRUE(isPainted(PicturePaper::Body));
  show(kReport, 10);
  EXPECT_TRUE(isPainted(PicturePaper::Cover));
  EXPECT_TRUE(isPainted(PicturePaper::Insert));
}

TEST_F(QtSheetsViewTest, RowsAreAsWideAsTheWindow) {
  show(kOneSided + inserts("1", "2,4,6,8,10,12,14,16,18"), 20);
  EXPECT_LE(view.sheets().picture().width * view.sheets().scale(), view.width());
  EXPECT_GT(items().back().y, items().front().y);
  view.resize(1300, 300);
  QApplication::processEvents();
  EXPECT_EQ(items().back().y, items().front().y);
}

TEST_F(QtSheetsViewTest, WhatHasNoRoomIsScrolledOrLeftOut) {
  std::string pages;
  for (int page = 2; page < 1000; ++page)
    pages += std::to_string(page) + ",";
  show(kTwoSided + inserts("0", pages), 1000);
  EXPECT_LE(view.minimumHeight(), 300);
  EXPECT_TRUE(std::any_of(items().begin(), items().end(),
                          [](const auto& item) { return item.kind == PictureItem::Kind::Gap; }));
}

TEST_F(QtSheetsViewTest, AClickGoesToTheSheetUnderThePointer) {
  show(kReport, 10);
  for (std::size_t item = 0; item < items().size(); ++item) {
    clickAt(view.area(), middleOf(item));
    EXPECT_EQ(view.sheets().current(), item);
  }
  EXPECT_EQ(view.sheets().itemAt(1, 1), std::nullopt);
}

TEST_F(QtSheetsViewTest, KeysGoFromSheetToSheetAndSayThem) {
  show(kReport, 10);
  tellFocus(QEvent::FocusIn);
  EXPECT_EQ(said, "Sheet 1: Leather Grain \u201cGröße A\u201d, front: page 1, back: blank");
  pressKey(view.area(), Qt::Key_Right);
  EXPECT_EQ(said, "Sheet 2: Plain Paper (Tray 1), front: page 2, back: page 3");
  EXPECT_EQ(accessible()->text(QAccessible::Name).toStdString(), said);
  pressKey(view.area(), Qt::Key_End);
  EXPECT_EQ(view.sheets().current(), items().size() - 1);
  pressKey(view.area(), Qt::Key_Right);
  EXPECT_EQ(view.sheets().current(), items().size() - 1);
  pressKey(view.area(), Qt::Key_Home);
  pressKey(view.area(), Qt::Key_Left);
  EXPECT_EQ(view.sheets().current(), 0U);
  tellFocus(QEvent::FocusOut);
  EXPECT_EQ(said, "");
  EXPECT_EQ(accessible()->text(QAccessible::Name), "Picture of the sheets");
}

TEST_F(QtSheetsViewTest, CanGoWithTheKeyboardOnASheet) {
  bool isGoing = false;
  auto other = std::make_unique<QtSheetsView>(
      nullptr, [&](const std::string&) { EXPECT_FALSE(isGoing) << "said by a view that is gone"; });
  other->show();
  other->showSheets(sheetsOf(kReport, 10));
  other->activateWindow();
  other->area()->setFocus();
  QApplication::processEvents();
  ASSERT_TRUE(other->area()->hasFocus());
  isGoing = true;
  other.reset();
}

TEST_F(QtSheetsViewTest, WithoutSheetsNoKeyDoesAnything) {
  show(kReport, 0);
  tellFocus(QEvent::FocusIn);
  pressKey(view.area(), Qt::Key_Right);
  EXPECT_EQ(said, "");
}

TEST_F(QtSheetsViewTest, RightToLeftTheFirstSheetIsAtTheRight) {
  view.setLayoutDirection(Qt::RightToLeft);
  show(kReport, 10);
  EXPECT_GT(items().front().x, items().back().x);
  EXPECT_GT(middleOf(0).x(), 500);
  tellFocus(QEvent::FocusIn);
  pressKey(view.area(), Qt::Key_Left);
  EXPECT_EQ(view.sheets().current(), 1U);
  pressKey(view.area(), Qt::Key_Right);
  EXPECT_EQ(view.sheets().current(), 0U);
  EXPECT_TRUE(isPainted(PicturePaper::Cover));
}

TEST_F(QtSheetsViewTest, ScreenReadersGetAnImageThatIsASentence) {
  show(kReport, 10);
  EXPECT_EQ(accessible()->role(), QAccessible::Graphic);
  EXPECT_EQ(accessible()->text(QAccessible::Name), "Picture of the sheets");
  EXPECT_EQ(accessible()->text(QAccessible::Description).toStdString(),
            "Front and back cover on Leather Grain \u201cGröße A\u201d, page 1 outside; sheets of "
            "Thick Paper (épais) before pages 5 and 8. 10 sheets in all.");
}

TEST_F(QtSheetsViewTest, LargeTextsMakeLargeSheets) {
  show(kReport, 10);
  const double usual = view.sheets().scale();
  QFont font = view.font();
  font.setPixelSize(30);
  view.setFont(font);
  QApplication::processEvents();
  EXPECT_GT(view.sheets().scale(), 1.5 * usual);
  EXPECT_LE(view.sheets().picture().width * view.sheets().scale(), view.width());
}

}  // namespace
}  // namespace publishing
