// SPDX-License-Identifier: Apache-2.0
#include "printing/covers/CoverLines.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "Publishing/PublishingKeys.h"
#include "base/Translation.h"
#include "printing/PrintError.h"
#include "printing/covers/CoverConstraints.h"
#include "printing/ppd/PPDDocument.h"

namespace publishing {
namespace {

using Choices = std::vector<CoverChoice>;

// A choice's "InputSlot.keyword" is a PPD keyword itself, which libcups takes up to this length.
constexpr std::size_t kLongestKeyword = 40;

// The texts are those of Zephrel PPDs, so that the options look alike everywhere. A PPD's own texts
// are in its encoding and language, which need not be the user's: these are ASCII.
constexpr struct {
  const char* option;
  const char* text;
  int order;  // behind what a page is usually set up with
} kCoverOptions[] = {
    {cCoverMediaType, "Cover Paper", 900},
    {cPageMediaType, "Inserted Page Paper", 901},
};
constexpr const char* kPrnDefText = "Printer Default";

class Lines {
 public:
  explicit Lines(std::string_view lineEnd) : lineEnd_(lineEnd) {}
  void add(const std::string& line) { text_.append(line).append(lineEnd_); }
  [[nodiscard]] std::string text() && { return std::move(text_); }

 private:
  std::string_view lineEnd_;
  std::string text_;
};

bool hasOption(const std::vector<PPDStatement>& statements, std::string_view option) {
  return std::any_of(statements.begin(), statements.end(), [&](const PPDStatement& statement) {
    return statement.keyword == "OpenUI" &&
           sameKeyword(statement.option, "*" + std::string(option));
  });
}

void addOption(const std::string& option, const std::string& text, int order,
               const Choices& choices, Lines& lines) {
  lines.add("*OpenUI *" + option + "/" + text + ": PickOne");
  lines.add("*OrderDependency: " + std::to_string(order) + " AnySetup *" + option);
  lines.add("*Default" + option + ": " + kPrnDef);
  lines.add("*" + option + " " + kPrnDef + "/" + kPrnDefText + ": \"\"");
  for (const CoverChoice& choice : choices) {
    const std::string shownAs = choice.text.empty() ? "" : "/" + choice.text;
    lines.add("*" + option + " " + choice.keyword + shownAs + ": \"\"");
  }
  lines.add("*CloseUI: *" + option);
}

// "de" of "*de.MediaType Plain/Normalpapier"; empty for any other statement.
std::string_view languageOf(const PPDStatement& statement, std::string_view option) {
  const std::size_t dot = statement.keyword.find('.');
  if (dot == std::string_view::npos || dot == 0) return {};
  return sameKeyword(statement.keyword.substr(dot + 1), option) ? statement.keyword.substr(0, dot)
                                                                : std::string_view();
}

bool isLanguage(std::string_view word) {
  return std::all_of(word.begin(), word.end(), [](char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
  });
}

std::set<std::string> languagesOf(const std::vector<PPDStatement>& statements) {
  std::set<std::string> languages;
  for (const PPDStatement& statement : statements) {
    if (statement.keyword != "cupsLanguages") continue;
    for (const std::string_view word : wordsOf(statement.value)) {
      if (isLanguage(word)) languages.emplace(word);
    }
  }
  languages.erase("en");
  return languages;
}

void addTranslations(const std::vector<PPDStatement>& statements, const std::string& option,
                     const std::string& text, const Choices& choices, Lines& lines) {
  for (const std::string& language : languagesOf(statements)) {
    lines.add("*" + language + ".Translation " + option + "/" + text + ": \"\"");
    lines.add("*" + language + "." + option + " " + kPrnDef + "/" + kPrnDefText + ": \"\"");
  }
  for (const PPDStatement& statement : statements) {
    for (const CoverChoice& choice : choices) {
      const std::string_view language = languageOf(statement, choice.option->keyword);
      if (language.empty() || !sameKeyword(statement.option, choice.choice->keyword)) continue;
      lines.add("*" + std::string(language) + "." + option + " " + choice.keyword + "/" +
                std::string(statement.text) + ": \"\"");
    }
  }
}

void addCodes(const PrinterVerdict& verdict, Lines& lines) {
  lines.add(std::string("*PublishingKind: \"") + nameOf(verdict.kind) + "\"");
  for (const auto& [medium, code] : verdict.codes) {
    if (medium.size() > kLongestKeyword) {
      throw PrintError::refused(
          translated("The keyword of its choice %s is too long.", shown(medium)));
    }
    lines.add("*PublishingCode " + medium + ": \"" + code + "\"");
  }
}

// Printer commands keep the driver's own way when it has one in the form that stays in force.
void addFilters(const std::vector<PPDStatement>& statements, const PrinterVerdict& verdict,
                Lines& lines) {
  lines.add("*cupsFilter: \"" + std::string(kSheetType) + " 0 " + verdict.program + "\"");
  const auto filters = filterLinesOf(statements);
  if (std::none_of(filters.begin(), filters.end(), staysInForce))
    lines.add("*cupsFilter: \"application/vnd.cups-command 0 commandtops\"");
}

}  // namespace

bool staysInForce(const FilterLine& line) {
  return line.isForCommands() && !line.isSecondForm();
}

std::string coverLines(const std::vector<PPDStatement>& statements, const PPDMedia& media,
                       const PrinterVerdict& verdict, std::string_view lineEnd) {
  Lines lines(lineEnd);
  const Choices choices = coverChoices(media, verdict.types);
  std::vector<std::string> added;
  for (const auto& [option, text, order] : kCoverOptions) {
    if (hasOption(statements, option)) continue;
    addOption(option, text, order, choices, lines);
    added.emplace_back(option);
  }
  for (const auto& [option, text, order] : kCoverOptions) {
    if (std::find(added.begin(), added.end(), option) == added.end()) continue;
    addTranslations(statements, option, text, choices, lines);
  }
  for (const std::string& line : repeatedConstraints(statements, choices, added))
    lines.add(line);
  addCodes(verdict, lines);
  addFilters(statements, verdict, lines);
  return std::move(lines).text();
}

}  // namespace publishing
