// SPDX-License-Identifier: Apache-2.0
#include "bench/PageListPeers.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <stdexcept>

#include <benchmark/benchmark.h>
#include <qpdf/QUtil.hh>

#ifdef HAVE_QT
#include <QPageRanges>
#include <QString>
#endif

#include "Publishing/parseNum.h"

namespace publishing::bench {
namespace {

std::vector<int> sorted(std::vector<int> pages) {
  std::sort(pages.begin(), pages.end());
  return pages;
}

// The panel's parser takes the storage for its results.
struct PanelParse {
  std::optional<std::string> list;
  std::vector<int> pages;
  std::int32_t count = 0;

  void operator()() {
    if (ParsePageNumber(list, &pages, &count, false, 0, kHighestPage, kMostPages) != kPageListOK) {
      throw std::runtime_error("the panel refuses " + *list);
    }
    benchmark::DoNotOptimize(pages.data());
  }
};

std::vector<int> parsedByQpdf(const std::string& list) {
  return QUtil::parse_numrange(list.c_str(), kHighestPage);
}

#ifdef HAVE_QT
std::vector<int> pagesOf(const QPageRanges& ranges) {
  std::vector<int> pages;
  for (const auto range : ranges.toRangeList()) {
    for (int page = range.from; page <= range.to; ++page)
      pages.push_back(page);
  }
  return pages;
}
#endif

}  // namespace

PageListParser panelParser() {
  return {"panel",
          [](const std::string& list) {
            PanelParse parse{list, {}};
            parse();
            return parse.pages;
          },
          [](const std::string& list) {
            return PanelParse{list, {}};
          }};
}

std::vector<PageListParser> peerParsers() {
  std::vector<PageListParser> peers = {
      {"libqpdf", [](const std::string& list) { return sorted(parsedByQpdf(list)); },
       [](const std::string& list) {
         return [list] { benchmark::DoNotOptimize(parsedByQpdf(list)); };
       }}};
#ifdef HAVE_QT
  const auto toQt = [](const std::string& list) { return QString::fromStdString(list); };
  peers.push_back(
      {"Qt",
       [toQt](const std::string& list) { return pagesOf(QPageRanges::fromString(toQt(list))); },
       [toQt](const std::string& list) {
         return [list = toQt(list)] { benchmark::DoNotOptimize(QPageRanges::fromString(list)); };
       }});
#endif
  return peers;
}

}  // namespace publishing::bench
