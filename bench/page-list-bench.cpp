// SPDX-License-Identifier: Apache-2.0
// How the panel's page-list parser does against other parsers, on lists that all of them accept and
// read alike; the ratios stand in a table at the end. Exits with 1 when a goal is missed, with 2
// when a list is read differently.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "bench/PageListPeers.h"
#include "bench/RatioTable.h"

namespace publishing::bench {
namespace {

constexpr double kTimesFaster = 3;

struct Sample {
  const char* name;
  const char* list;
};

constexpr Sample kSamples[] = {
    {"one page", "5"},
    {"a few", "5,8,12-14"},
    {"unsorted", "300,12-14,8,5"},
    {"one range", "12-21"},
    {"all singles", "2,30,44,105,176,207,318,409,410,511"},
    {"all ranges", "2-3,5-6,8-9,11-12,14-15,17-18"},
};

bool readAlike(const PageListParser& panel, const std::vector<PageListParser>& peers) {
  bool alike = true;
  for (const auto& [name, list] : kSamples) {
    for (const PageListParser& peer : peers) {
      if (peer.pages(list) == panel.pages(list)) continue;
      std::fprintf(stderr, "%s reads \"%s\" differently\n", peer.name.c_str(), list);
      alike = false;
    }
  }
  return alike;
}

void registerParser(const PageListParser& parser, const Sample& sample) {
  benchmark::RegisterBenchmark((parser.name + "/" + sample.name).c_str(),
                               [parse = parser.readied(sample.list)](benchmark::State& state) {
                                 for ([[maybe_unused]] auto iteration : state)
                                   parse();
                               });
}

int run(int argc, char** argv) {
  const PageListParser panel = panelParser();
  const std::vector<PageListParser> peers = peerParsers();
  if (!readAlike(panel, peers)) return 2;

  std::vector<Comparison> comparisons;
  for (const Sample& sample : kSamples) {
    registerParser(panel, sample);
    for (const PageListParser& peer : peers) {
      registerParser(peer, sample);
      comparisons.push_back({panel.name + "/" + sample.name, peer.name + "/" + sample.name,
                             Comparison::Goal::kTimesFaster, kTimesFaster});
    }
  }
  return measureAndCompare(argc, argv, comparisons) ? 0 : 1;
}

}  // namespace
}  // namespace publishing::bench

int main(int argc, char** argv) {
  try {
    return publishing::bench::run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "page-list-bench: %s\n", error.what());
    return 2;
  }
}
