// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/dialog/QtJobOptions.h"

#include <QPrintEngine>
#include <QStringList>
#include <QVariant>
#include <algorithm>
#include <iterator>
#include <string_view>

#include "Publishing/PublishingFeatures.h"

namespace publishing {
namespace {

// A list of names and values in turn. Qt's own name for the key is not public, its value is the
// same from Qt 5.0 on.
constexpr auto kCupsOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

bool isPanelKey(std::string_view name) {
  return std::any_of(std::begin(kFeatures), std::end(kFeatures), [name](const auto& feature) {
    return std::find(std::begin(feature.keys), std::end(feature.keys), name) !=
           std::end(feature.keys);
  });
}

}  // namespace

void giveJobOptions(QPrinter& printer, const JobTicket::Options& options) {
  QPrintEngine* engine = printer.printEngine();
  const QStringList present = engine->property(kCupsOptions).toStringList();
  QStringList given;
  for (int place = 0; place + 1 < present.size(); place += 2) {
    const std::string name = present.at(place).toStdString();
    if (isPanelKey(name) || options.contains(name)) continue;
    given << present.at(place) << present.at(place + 1);
  }
  for (const auto& [name, value] : options) {
    if (!value.empty()) given << QString::fromStdString(name) << QString::fromStdString(value);
  }
  engine->setProperty(kCupsOptions, given);
}

}  // namespace publishing
