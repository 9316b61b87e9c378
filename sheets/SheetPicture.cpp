// SPDX-License-Identifier: Apache-2.0
#include "sheets/SheetPicture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "sheets/SheetPictureDrawing.h"
#include "sheets/SheetPictureItems.h"
#include "sheets/SheetPictureText.h"

namespace publishing {
namespace {

// In units.
constexpr double kMargin = 12;
constexpr double kGap = 10;
constexpr double kRowDistance = 12;
constexpr double kTitleHeight = 26;
constexpr double kLegendHeight = 22;
constexpr double kLegendDistance = 18;
constexpr double kSwatchDistance = 8;
constexpr double kSwatchWidth = 26;
constexpr double kSwatchHeight = 17;
constexpr double kTitleSize = 14;
constexpr double kTextSize = 12;

constexpr const char* kDots = "\u2026";
constexpr const char* kTimes = "\u00d7";

// Places title, sheets and legend below each other and draws them.
class Layout {
 public:
  explicit Layout(const PictureOptions& options)
      : options_(options), rowWidth_(std::max(options.width - 2 * kMargin, widestItem())) {}

  void title() {
    if (options_.title.empty()) return;
    caption({kMargin, y_ + kTitleSize / 2}, options_.title, kTitleSize);
    y_ += kTitleHeight;
  }

  void sheets(std::vector<PictureItem> items, int copies) {
    if (items.empty()) return;
    const double inARow = std::floor((rowWidth_ + kGap) / (widestItem() + kGap));
    const double most = std::max(3.0, inARow * std::max(1, options_.mostRows));
    items_ = withGap(std::move(items), static_cast<std::size_t>(most));
    for (const PictureItem& item : items_)
      rowHeight_ = std::max(rowHeight_, heightOf(item));

    double x = kMargin;
    for (PictureItem& item : items_) {
      item.width = widthOf(item);
      item.height = rowHeight_;
      item.x = place(x, item.width);
      item.y = y_;
      drawing_.item(item);
      x = item.x + item.width + kGap;
    }
    if (copies > 1) {
      const std::string times = kTimes + std::to_string(copies);
      x = place(x, widthOf(times, kTitleSize));
      caption({x, y_ + rowHeight_ / 2}, times, kTitleSize);
    }
    y_ += rowHeight_ + kRowDistance;
  }

  // Beside the last one where there is room, else below it.
  void legend(const std::string& text, PicturePaper paper) {
    const double width = kSwatchWidth + kSwatchDistance + widthOf(text, kTextSize);
    if (legendX_ > kMargin && legendX_ + width > kMargin + rowWidth_) {
      legendX_ = kMargin;
      y_ += kLegendHeight;
    }
    drawing_.paper(
        {legendX_, y_ + (kLegendHeight - kSwatchHeight) / 2, kSwatchWidth, kSwatchHeight}, paper);
    caption({legendX_ + kSwatchWidth + kSwatchDistance, y_ + kLegendHeight / 2}, text, kTextSize);
    legendX_ += width + kLegendDistance;
  }

  SheetPicture finish() {
    if (legendX_ > kMargin) y_ += kLegendHeight;
    SheetPicture picture;
    picture.width = right_ + kMargin;
    picture.height = y_ + kMargin;
    picture.items = std::move(items_);
    picture.shapes = drawing_.take();
    if (options_.rightToLeft) mirror(picture);
    return picture;
  }

 private:
  // Where something that wide begins: at x, or in a new row.
  double place(double x, double width) {
    if (x > kMargin && x + width > kMargin + rowWidth_) {
      x = kMargin;
      y_ += rowHeight_ + kRowDistance;
    }
    right_ = std::max(right_, x + width);
    return x;
  }

  // As much of the text as there is room for to its right.
  void caption(PicturePoint at, const std::string& text, double size) {
    const std::string fitting = fitted(text, size, kMargin + rowWidth_ - at.x);
    right_ = std::max(right_, at.x + widthOf(fitting, size));
    drawing_.caption(at, fitting, size);
  }

  static void mirror(SheetPicture& picture) {
    for (PictureItem& item : picture.items)
      item.x = picture.width - item.x - item.width;
    for (PictureShape& shape : picture.shapes) {
      for (std::vector<PicturePoint>& path : shape.paths)
        for (PicturePoint& point : path)
          point.x = picture.width - point.x;
      if (shape.anchor == PictureShape::Anchor::Begin) shape.anchor = PictureShape::Anchor::End;
    }
  }

  const PictureOptions& options_;
  double rowWidth_;
  std::vector<PictureItem> items_;
  PictureDrawing drawing_;
  double rowHeight_ = 0;
  double right_ = kMargin;
  double y_ = kMargin;
  double legendX_ = kMargin;  // where the next entry begins
};

std::string shownName(const std::string& medium, const PictureOptions& options) {
  if (medium.empty()) return options.bodyMediumName;
  const auto name = options.mediumNames.find(medium);
  return name == options.mediumNames.end() ? medium : name->second;
}

// Without a number for the body when the number of pages is not known.
void drawLegend(Layout& layout, const SheetPlan& plan, bool isScheme,
                const PictureOptions& options) {
  if (!options.hasLegend) return;
  for (const MediumTotal& total : mediumTotals(plan)) {
    const std::string name = shownName(total.medium, options);
    const std::string count =
        isScheme && total.medium.empty() ? kDots : std::to_string(total.sheets);
    const std::string text = name.empty() ? count : count + " " + kTimes + " " + name;
    layout.legend(text, paperOf(plan, total.medium));
  }
}

SheetPicture drawn(const SheetPlan& plan, std::vector<PictureItem> items, bool isScheme,
                   const PictureOptions& options) {
  Layout layout(options);
  layout.title();
  layout.sheets(std::move(items), plan.copies);
  drawLegend(layout, plan, isScheme, options);
  return layout.finish();
}

// The last sheet of the body, whose back is blank or not as the number of pages is odd or even.
const Sheet* lastBodySheet(const SheetPlan& plan) {
  const auto last = std::find_if(plan.sheets.rbegin(), plan.sheets.rend(),
                                 [](const Sheet& sheet) { return sheet.role == SheetRole::Body; });
  return last == plan.sheets.rend() ? nullptr : &*last;
}

}  // namespace

SheetPicture pictureOf(const SheetPlan& plan, const PictureOptions& options) {
  return drawn(plan, itemsOf(plan, [](int page) { return std::to_string(page); }), false, options);
}

SheetPicture schemeOf(const SheetOrder& order, const PictureOptions& options) {
  constexpr int kPagesAfterTheLastInsert = 8;
  SheetOrder shown = order;
  std::erase_if(shown.insertPages, [](int page) { return page > kLastSchemePage; });
  int pages = kPagesAfterTheLastInsert + (shown.insertPages.empty() ? 0 : shown.insertPages.back());
  SheetPlan plan = planSheets(shown, pages);
  const Sheet* last = lastBodySheet(plan);
  if (last != nullptr && last->back == kBlankSide) plan = planSheets(shown, ++pages);

  const int onBack = shown.coverSides.backOutside + shown.coverSides.backInside;
  const auto pageName = [pages, onBack](int page) -> std::string {
    if (page == pages) return "n";
    if (page == pages - 1 && onBack == 2) return "n\u22121";
    return page == pages - onBack ? kDots : std::to_string(page);
  };
  std::vector<PictureItem> items = itemsOf(plan, pageName);
  for (PictureItem& item : items)
    item.isOpen = item.role == SheetRole::Body && item.kind == PictureItem::Kind::Stack &&
                  &plan.sheets[item.first + item.count - 1] == lastBodySheet(plan);
  return drawn(plan, std::move(items), true, options);
}

}  // namespace publishing
