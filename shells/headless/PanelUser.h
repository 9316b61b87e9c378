// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Publishing/PublishingFeatures.h"
#include "Publishing/PublishingPDEPlugin.h"
#include "printing/JobTicket.h"
#include "printing/Printer.h"
#include "shells/headless/HeadlessBundle.h"

namespace publishing {

// What a user wants of the panel; what is not there stays as it is.
struct PanelRequest {
  std::optional<std::string> cover;       // "none", "front" or "front-back"
  std::optional<std::string> coverMedia;  // a choice's keyword or text
  // "front-outside" ...; "none" is no side. Without it, covers that begin or become of another kind
  // have the front's outside printed.
  std::optional<std::vector<std::string>> coverSides;
  std::optional<std::string> insert;  // a page list, or "none"
  std::optional<std::string> insertMedia;
  std::optional<std::vector<std::string>> insertSides;  // "front", "back"; "none" is no side
};

// A user without a display: carries out a request on the panel by the gestures that a user at a
// dialog would make, and is refused where such a user would be.
class PanelUser {
 public:
  // Opens the panel on the printer's PPD and the ticket's settings. Both are the caller's and must
  // outlive this object.
  PanelUser(Printer& printer, JobTicket& ticket);

  // Throws PrintError: Usage for a request that makes no sense, Refused for what the panel does not
  // offer now, with the reason.
  void apply(const PanelRequest& request);

  // Stores the panel's state in the ticket and marks its media in the PPD. Throws PrintError
  // (Refused) with the panel's own message when the panel does not accept the page list.
  void save();

  [[nodiscard]] PublishingPDE& panel() { return *panel_; }

  // A pop-up of the panel by its outlet's name, which must be one.
  [[nodiscard]] const HeadlessPopUpButton& popUp(const char* name) const;

 private:
  struct Side;

  void applyCover(const PanelRequest& request);
  void chooseCover(const std::string& cover);
  void applyInsert(const PanelRequest& request);
  void switchFeature(const PublishingFeature& feature, bool on);
  void requireMedia(const PublishingFeature& feature) const;
  void choose(const PublishingFeature& feature, const std::string& wanted);
  [[nodiscard]] std::int64_t itemOf(const PublishingFeature& feature,
                                    const std::string& wanted) const;
  void tick(const std::vector<Side>& sides, const std::vector<std::string>& wanted);
  void typePages(const std::string& list);

  Printer& printer_;
  std::vector<std::string> alerts_;
  std::shared_ptr<HeadlessBundle> bundle_;
  PublishingPDEPlugin plugin_;
  std::shared_ptr<PublishingPDE> panel_;
};

}  // namespace publishing
