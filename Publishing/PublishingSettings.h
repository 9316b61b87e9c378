// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace publishing {

// Bits of covermodeValue: the sides of the covers to be printed.
inline constexpr std::int64_t kFrontOutside = 1;
inline constexpr std::int64_t kFrontInside = 2;
inline constexpr std::int64_t kBackOutside = 4;
inline constexpr std::int64_t kBackInside = 8;

// covermodeValue when no side is ticked, by the kind of cover.
inline constexpr std::int64_t kNoSideOfFrontCover = 16;
inline constexpr std::int64_t kNoSideOfBothCovers = 32;

// Bits of pageinsertValue: the sides of the inserted sheets to be printed.
inline constexpr std::int64_t kPrintOnFront = 1;
inline constexpr std::int64_t kPrintOnBack = 2;

// The panel's state between the controls and the job's print settings.
//
// The text fields hold nothing until a control or a setting gave them a value. The Transparency
// Interleaving fields are never stored, neither is printonbackValue.
struct PublishingSettings {
  // 1 on, 0 off.
  std::int64_t covermodeEnableState = 0;
  std::int64_t transparencyinterleavingEnableState = 0;
  std::int64_t pageinsertEnableState = 0;

  // 1 front cover only, 2 front and back covers, 0 not chosen, -1 switched off by reverse output
  // order or N-up until the controls are read again.
  std::int64_t covermodeRadioButtonState = 0;

  // The side bits, or one of the values for no side.
  std::int64_t covermodeValue = 0;

  std::int64_t printonbackValue = 0;

  // The insert side bits.
  std::int64_t pageinsertValue = 0;

  // The page list as typed or stored; see ParsePageNumber.
  std::optional<std::string> pageNumValue;

  // The selected item's title, or the choice keyword that the print settings held.
  std::optional<std::string> cmmediatype;
  std::optional<std::string> timediatype;
  std::optional<std::string> pimediatype;

  // Set when a restore found a feature on; the restore is then run again when controls come to
  // life.
  bool restoreFlag = false;

  // Index of the selected item, which is the index of the choice in the PPD option.
  std::int64_t cmIndex = 0;
  std::int64_t piIndex = 0;
  std::int64_t tiIndex = 0;

  // The index text that was read last from the print settings.
  std::optional<std::string> indexTempString;
};

}  // namespace publishing
