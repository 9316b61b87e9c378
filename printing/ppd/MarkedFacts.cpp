// SPDX-License-Identifier: Apache-2.0
#include "printing/ppd/MarkedFacts.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

#include "Publishing/PublishingKeys.h"
#include "Publishing/ppd/PPDFields.h"
#include "printing/ppd/DuplexOption.h"

namespace publishing {
namespace {

std::string marked(ppd_file_t* ppd, const char* option) {
  const ppd_choice_t* choice = ppdFindMarkedChoice(ppd, option);
  return choice == nullptr ? std::string() : std::string(boundedView(choice->choice));
}

// Null when the PPD does not have it with that very keyword after its name.
const char* attribute(ppd_file_t* ppd, const char* name, const std::string& spec) {
  for (const ppd_attr_t* found = ppdFindAttr(ppd, name, nullptr); found != nullptr;
       found = ppdFindNextAttr(ppd, name, nullptr)) {
    if (boundedView(found->spec) == spec) return found->value;
  }
  return nullptr;
}

int mostCopies(ppd_file_t* ppd) {
  const char* most = attribute(ppd, "cupsMaxCopies", {});
  if (most != nullptr) return std::max(std::atoi(most), 1);
  return ppd->manual_copies != 0 ? 1 : PrinterFacts{}.mostCopies;
}

}  // namespace

bool meansYes(std::string_view value) {
  return value == "True" || value == "true" || value == "Yes" || value == "On";
}

PrinterFacts markedFacts(ppd_file_t* ppd) {
  PrinterFacts facts;
  facts.canDuplex =
      std::any_of(std::begin(kDuplexOptions), std::end(kDuplexOptions),
                  [ppd](const char* option) { return ppdFindOption(ppd, option) != nullptr; });
  if (const auto sides = markedSidesOf(ppd)) facts.markedTwoSided = *sides != Sides::OneSided;
  facts.markedOutputOrder = marked(ppd, kOutputOrder);
  const char* order = attribute(ppd, "PageStackOrder", marked(ppd, "OutputBin"));
  if (order == nullptr) order = attribute(ppd, "DefaultOutputOrder", {});
  if (order != nullptr) facts.defaultOutputOrder = order;
  facts.markedCoverMediaType = marked(ppd, cCoverMediaType);
  facts.markedPageMediaType = marked(ppd, cPageMediaType);
  facts.markedCollate = meansYes(marked(ppd, "Collate"));
  facts.mostCopies = mostCopies(ppd);
  return facts;
}

}  // namespace publishing
