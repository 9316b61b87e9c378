// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/TrayCode.h"

#include <algorithm>
#include <charconv>

#include "Publishing/PublishingKeys.h"

namespace publishing {
namespace {

// PCL's "tray 1" and PCL XL's "automatic". The pipe that chooses a tray for a whole PCL XL job puts
// it in place of 0 and 1, so that such a page comes out of the job's own tray.
constexpr int kDefaultTray = 1;

std::string codeOf(int position) {
  return "<</MediaPosition " + std::to_string(position) + ">>setpagedevice";
}

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

bool take(std::string_view& rest, std::string_view prefix) {
  if (!rest.starts_with(prefix)) return false;
  rest.remove_prefix(prefix.size());
  return true;
}

std::optional<int> takeNumber(std::string_view& rest, int base) {
  int number = 0;
  const auto [end, error] = std::from_chars(rest.data(), rest.data() + rest.size(), number, base);
  if (error != std::errc()) return std::nullopt;
  rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
  return number;
}

// "-dMediaPosition=4".
std::optional<int> positionOption(std::string_view words) {
  if (!take(words, "-dMediaPosition=")) return std::nullopt;
  const auto number = takeNumber(words, 10);
  return words.empty() ? number : std::nullopt;
}

// A pipe that puts the tray's number into each page of the PCL XL that has none:
// | perl -p -e "s/\xf8\x25\xc0[\x00\x01]\xf8\x26/\xf8\x25\xc0\x04\xf8\x26/g"
std::optional<int> positionPipe(std::string_view words) {
  if (!take(words, "| perl -p -e ") && !take(words, "| sed ")) return std::nullopt;
  if (!take(words, R"("s/\xf8\x25\xc0[\x00\x01]\xf8)")) return std::nullopt;
  take(words, R"(\x26)");
  if (!take(words, R"(/\xf8\x25\xc0\x)")) return std::nullopt;
  const auto number = takeNumber(words, 16);
  if (!take(words, R"(\xf8)")) return std::nullopt;
  take(words, R"(\x26)");
  return words == "/g\"" ? number : std::nullopt;
}

// Of these devices' languages, PCL 3 to 5, tray 0 means "the tray of the page before": what was
// meant for the printer's own tray would come out of the cover's.
bool zeroKeepsTray(const FoomaticDriver& driver) {
  const auto& devices = driver.devices();
  return std::any_of(devices.begin(), devices.end(), [](const std::string& device) {
    return device.starts_with("ljet") || device == "laserjet";
  });
}

}  // namespace

std::optional<std::string> trayCode(const FoomaticDriver& driver, std::string_view tray) {
  const auto setting = driver.setting(cInputSlot, tray);
  if (!setting) return std::nullopt;
  const std::string_view words = withoutBlanks(*setting);
  if (words.empty()) return codeOfDefaultTray();
  auto position = positionOption(words);
  if (!position) position = positionPipe(words);
  if (!position) return std::nullopt;
  if (*position == 0 && zeroKeepsTray(driver)) return codeOfDefaultTray();
  return codeOf(*position);
}

std::string codeOfDefaultTray() {
  return codeOf(kDefaultTray);
}

}  // namespace publishing
