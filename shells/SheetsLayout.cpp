// SPDX-License-Identifier: Apache-2.0
#include "shells/SheetsLayout.h"

#include <algorithm>
#include <utility>

#include "printing/SheetSentence.h"
#include "printing/SheetWords.h"

namespace publishing {
namespace {

constexpr int kMostRows = 4;  // what has no room in them is left out

// Sheets are smaller when they would not all be seen otherwise.
constexpr double kSizes[] = {1, 0.85, 0.72};

// In units. One row of sheets with its legend, and what is left of that on a small screen.
constexpr double kBestHeight = 150;
constexpr double kLeastHeight = 60;

constexpr double kUsualFont = 14.7;  // pixels; 11 points on most screens
constexpr double kLargestScale = 4;

}  // namespace

double SheetsLayout::textScaleOf(double fontPixels) {
  return std::clamp(fontPixels / kUsualFont, 1.0, kLargestScale);
}

double SheetsLayout::heightOn(double screenHeight, double others, double fontScale) {
  const double spare = screenHeight / fontScale - others;
  return std::clamp(spare, kLeastHeight, kBestHeight) * fontScale;
}

void SheetsLayout::show(JobSheets job) {
  job_ = std::move(job);
  current_.reset();
}

void SheetsLayout::layOut(const Room& room) {
  room_ = room;
  if (!job_) return;
  PictureOptions options;
  options.mostRows = kMostRows;
  options.rightToLeft = room.isRightToLeft;
  for (const double size : kSizes) {
    scale_ = size * room.fontScale;
    options.width = room.width / scale_;
    picture_ = pictureOf(*job_, options);
    if (height() <= room.height) break;
  }
  if (current_ && *current_ >= picture_.items.size()) current_.reset();
}

// Rows that are shorter than the room begin at its right where texts do.
double SheetsLayout::left() const {
  return room_.isRightToLeft ? room_.width - picture_.width * scale_ : 0;
}

SheetsLayout::Place SheetsLayout::placeOf(std::size_t item) const {
  const PictureItem& shown = picture_.items.at(item);
  return {left() + shown.x * scale_, shown.y * scale_, shown.width * scale_, shown.height * scale_};
}

std::optional<std::size_t> SheetsLayout::itemAt(double x, double y) const {
  for (std::size_t item = 0; item < picture_.items.size(); ++item) {
    const Place place = placeOf(item);
    if (x >= place.x && x < place.x + place.width && y >= place.y && y < place.y + place.height)
      return item;
  }
  return std::nullopt;
}

std::string SheetsLayout::wordsOf(std::size_t item) const {
  return publishing::wordsOf(*job_, picture_.items.at(item));
}

std::string SheetsLayout::sentence() const {
  return job_ ? sentenceOf(*job_) : "";
}

bool SheetsLayout::goTo(std::optional<std::size_t> item) {
  if (!item || *item >= picture_.items.size()) return false;
  current_ = item;
  return true;
}

std::optional<std::size_t> SheetsLayout::itemBy(Key key) const {
  if (picture_.items.empty()) return std::nullopt;
  const std::size_t last = picture_.items.size() - 1;
  const std::size_t here = current_.value_or(0);
  if (key == Key::Home) return 0;
  if (key == Key::End) return last;
  const bool isOnward = (key == Key::Right) != room_.isRightToLeft;
  return isOnward ? std::min(here + 1, last) : here - std::min<std::size_t>(here, 1);
}

}  // namespace publishing
