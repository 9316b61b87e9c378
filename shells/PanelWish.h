// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "Publishing/PublishingFeatures.h"
#include "Publishing/PublishingPDE.h"
#include "printing/JobTicket.h"
#include "shells/PanelControls.h"

namespace publishing {

// What the user wants of the panel, in the panel's own keys. The panel forgets at once what a
// layout, one-sided printing or an unticked box takes away; the wish lasts, for the host to show
// again as soon as it is possible.
class PanelWish {
 public:
  // Nothing is wanted.
  PanelWish() = default;

  // What the ticket has of the features that are on in it.
  explicit PanelWish(const JobTicket& ticket);

  [[nodiscard]] bool isOn(const PublishingFeature& feature) const;

  // Takes over what the controls show after a gesture of the user's. What they do not show is still
  // wanted: a feature that the layout forbids, all of a feature that the user switched off, and
  // sides that one-sided printing cannot reach. True when a feature was switched on, whose controls
  // do not show the rest of the wish yet.
  [[nodiscard]] bool note(PublishingPDE& panel, const PanelControls& controls);

  // The cover sides that are to be printed, as bits; nothing when nobody has said so far.
  [[nodiscard]] std::optional<std::int64_t> coverSides() const;

  // The medium by its index. Switches nothing on.
  void setMedium(const PublishingFeature& feature, std::size_t index);

  void switchTo(const PublishingFeature& feature, bool on);

  // Sets the panel's keys in the ticket as the wish has them, for the panel to restore.
  void putInto(JobTicket& ticket) const;

 private:
  void noteCovers(const PublishingSettings& state, const PanelControls& controls);
  void noteInserts(const PublishingSettings& state, const PanelControls& controls);
  [[nodiscard]] std::int64_t number(const char* key) const;

  std::map<std::string, std::string> values_;
};

}  // namespace publishing
