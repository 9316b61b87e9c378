// SPDX-License-Identifier: Apache-2.0
#include "bench/GeneratedPPD.h"

#include <algorithm>
#include <string_view>

namespace publishing::bench {
namespace {

const std::string kHead =
    "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*LanguageVersion: English\n"
    "*LanguageEncoding: UTF-8\n*Manufacturer: \"Zephrel\"\n*ModelName: \"Zephrel PS 9000\"\n"
    "*NickName: \"Zephrel PS 9000\"\n*OpenGroup: General/General\n";
const std::string kFoot = "*CloseGroup: General\n";

constexpr int kTrays = 12;
constexpr int kChoices = 10;
constexpr int kOpponents = 4;        // options before it that an option has constraints with
constexpr int kTrayConstraints = 4;  // of each option

std::string numbered(std::string_view name, int number) {
  return std::string(name) + std::to_string(number);
}

std::string optionName(int option) {
  return numbered("FinisherOption", option);
}

std::string choiceName(int choice) {
  return choice == 0 ? "None" : numbered("Setting", choice);
}

std::string openUI(const std::string& option, const std::string& marked) {
  return "*OpenUI *" + option + "/Text of " + option +
         ": PickOne\n*OrderDependency: 30 AnySetup *" + option + "\n*Default" + option + ": " +
         marked + "\n";
}

std::string choiceLine(const std::string& option, const std::string& choice) {
  return "*" + option + " " + choice + "/Text of " + choice +
         ": \"<</DeferredMediaSelection true /" + option + " (" + choice +
         ") /PolicyReport 1>> setpagedevice\n"
         "  userdict /ZephrelFinisher known {userdict /ZephrelFinisher get begin currentpagedevice"
         " UpdateFinisher end} if\"\n*End\n";
}

std::string trays(int count) {
  std::string lines = openUI("InputSlot", "Tray1");
  for (int tray = 1; tray <= count; ++tray)
    lines += choiceLine("InputSlot", numbered("Tray", tray));
  return lines + "*CloseUI: *InputSlot\n";
}

// A constraint, listed from both sides.
std::string constraint(const std::string& one, const std::string& other) {
  return "*UIConstraints: *" + one + " *" + other + "\n*UIConstraints: *" + other + " *" + one +
         "\n";
}

std::string finisherOption(int number) {
  const std::string option = optionName(number);
  std::string lines = openUI(option, choiceName(number % 3 == 0 ? 1 : 0));
  for (int choice = 0; choice < kChoices; ++choice)
    lines += choiceLine(option, choiceName(choice));
  lines += "*CloseUI: *" + option + "\n";

  for (int index = 0; index < kTrayConstraints; ++index) {
    lines += constraint("InputSlot " + numbered("Tray", (number + index) % kTrays + 1),
                        option + " " + choiceName(1 + index));
  }
  for (int opponent = std::max(0, number - kOpponents); opponent < number; ++opponent) {
    for (int choice = 1; choice < kChoices; ++choice) {
      lines += constraint(option + " " + choiceName(choice),
                          optionName(opponent) + " " + choiceName(kChoices - choice));
    }
  }
  return lines;
}

// An option without code.
std::string shortOption(int number) {
  const std::string option = optionName(number);
  std::string lines = "*OpenUI *" + option + ": PickOne\n*Default" + option + ": None\n";
  for (int choice = 0; choice < kChoices; ++choice)
    lines += "*" + option + " " + choiceName(choice) + ": \"\"\n";
  return lines + "*CloseUI: *" + option + "\n";
}

}  // namespace

std::string generatedPPD(std::size_t size) {
  std::string text = kHead + trays(kTrays);
  for (int option = 0; text.size() < size; ++option)
    text += finisherOption(option);
  return text + kFoot;
}

std::string ppdWithConstraints(int constraints) {
  constexpr int kManyTrays = 1000;
  constexpr int kOptions = 100;
  std::string text = kHead + trays(kManyTrays);
  for (int option = 0; option < kOptions; ++option)
    text += shortOption(option);
  text += kFoot;
  for (int number = 0; number < constraints; ++number) {
    const int opponent = number / kManyTrays;
    text += "*UIConstraints: *InputSlot " + numbered("Tray", number % kManyTrays + 1) + " *" +
            optionName(opponent % kOptions) + " " + choiceName(opponent / kOptions) + "\n";
  }
  return text;
}

}  // namespace publishing::bench
