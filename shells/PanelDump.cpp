// SPDX-License-Identifier: Apache-2.0
#include "shells/PanelDump.h"

#include "Publishing/PublishingFeatures.h"

namespace publishing {
namespace {

using nlohmann::json;

json dumpControl(const CheckBox& box) {
  return {{"state", box.state()}, {"enabled", box.isEnabled()}};
}

json dumpControl(const RadioMatrix& matrix) {
  return {{"column", matrix.selectedColumn()}, {"enabled", matrix.isEnabled()}};
}

json dumpControl(const PopUpButton& popUp) {
  json items = json::array();
  for (std::int64_t index = 0; index < popUp.numberOfItems(); ++index) {
    items.push_back(
        {{"title", popUp.itemTitleAtIndex(index)}, {"enabled", popUp.isItemEnabledAtIndex(index)}});
  }
  return {{"selected", popUp.indexOfSelectedItem()},
          {"enabled", popUp.isEnabled()},
          {"items", std::move(items)}};
}

json dumpControl(const TextField& field) {
  return {{"text", field.stringValue().value_or("")}, {"enabled", field.isEnabled()}};
}

json dumpControl(const TabView& tabs) {
  json labels = json::array();
  for (std::int64_t index = 0; index < tabs.numberOfTabViewItems(); ++index) {
    labels.push_back(tabs.tabViewItemLabelAtIndex(index));
  }
  return labels;
}

json textOrNull(const std::optional<std::string>& text) {
  return text ? json(*text) : json();
}

}  // namespace

json dumpControls(PublishingPDE& panel) {
  json controls = json::object();
  bool loaded = false;
  for (const OutletBinding& binding : panel.outlets()) {
    // The withdrawn feature's pop-up is neither filled nor read by the panel.
    if (binding.name == outlet::TiMediaType) continue;
    const std::string name(binding.name == outlet::tabView ? "tabs" : binding.name);
    std::visit(
        [&](auto* outlet) {
          if constexpr (std::is_same_v<decltype(outlet), View**>) {
            loaded = *outlet != nullptr;
          } else {
            controls[name] = dumpControl(**outlet);
          }
        },
        binding.outlet);
  }
  return loaded ? controls : json();
}

json dumpFields(const PublishingSettings& state) {
  return {
      {"covermodeEnableState", state.covermodeEnableState},
      {"transparencyinterleavingEnableState", state.transparencyinterleavingEnableState},
      {"pageinsertEnableState", state.pageinsertEnableState},
      {"covermodeRadioButtonState", state.covermodeRadioButtonState},
      {"covermodeValue", state.covermodeValue},
      {"printonbackValue", state.printonbackValue},
      {"pageinsertValue", state.pageinsertValue},
      {"pageNumValue", textOrNull(state.pageNumValue)},
      {"cmmediatype", textOrNull(state.cmmediatype)},
      {"timediatype", textOrNull(state.timediatype)},
      {"pimediatype", textOrNull(state.pimediatype)},
      {"restoreFlag", state.restoreFlag ? 1 : 0},
      {"cmIndex", state.cmIndex},
      {"piIndex", state.piIndex},
      {"tiIndex", state.tiIndex},
      {"indexTempString", textOrNull(state.indexTempString)},
  };
}

std::string jsonLine(const json& json) {
  return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace publishing
