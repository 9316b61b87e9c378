// SPDX-License-Identifier: Apache-2.0
#include "shells/qt/QtText.h"

#include "shells/DisplayText.h"

namespace publishing {

QString shownText(const std::string& text) {
  return QString::fromStdString(displayText(text));
}

QString shownLabel(const std::string& text) {
  return QString::fromStdString(displayLabel(text, '&'));
}

QString shownTooltip(const std::string& text) {
  if (text.empty()) return {};
  const QString markup =
      shownText(text).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
  return QLatin1String("<p>") + markup + QLatin1String("</p>");
}

QString withMnemonic(const std::string& label) {
  return shownLabel(label).replace(QLatin1Char('_'), QLatin1Char('&'));
}

QString withoutMnemonic(const QString& label) {
  QString text;
  for (int place = 0; place < label.size(); ++place) {
    if (label.at(place) == QLatin1Char('&')) ++place;
    if (place < label.size()) text += label.at(place);
  }
  return text;
}

}  // namespace publishing
