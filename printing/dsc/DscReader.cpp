// SPDX-License-Identifier: Apache-2.0
#include "printing/dsc/DscReader.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <utility>

namespace publishing {
namespace {

bool endsLine(char byte) {
  return byte == '\n' || byte == '\r';
}

bool isBlank(char byte) {
  return byte == ' ' || byte == '\t';
}

// Takes the next word from the text.
std::string_view takeWord(std::string_view& text) {
  const auto notBlank = std::find_if_not(text.begin(), text.end(), isBlank);
  const auto end =
      std::find_if(notBlank, text.end(), [](char byte) { return isBlank(byte) || endsLine(byte); });
  const std::string_view word(notBlank, end);
  text = std::string_view(end, text.end());
  return word;
}

struct Keyword {
  std::string_view text;
  DscComment comment;
};

// Comments count by their beginning, as CUPS's own filters take them.
DscComment find(std::string_view line, std::initializer_list<Keyword> keywords) {
  for (const Keyword& keyword : keywords) {
    if (line.starts_with(keyword.text)) return keyword.comment;
  }
  return DscComment::None;
}

DscComment beforePages(std::string_view line) {
  return find(line, {{"%%Page:", DscComment::Page},
                     {"%%BeginSetup", DscComment::BeginSetup},
                     {"%%BeginProlog", DscComment::BeginProlog},
                     {"%%BeginDefaults", DscComment::BeginProlog}});
}

DscComment inHeader(std::string_view line) {
  const DscComment comment = find(line, {{"%%Pages:", DscComment::Pages},
                                         {"%%DocumentMedia:", DscComment::DocumentMedia},
                                         {"%%EndComments", DscComment::EndComments}});
  return comment == DscComment::None ? beforePages(line) : comment;
}

DscComment inSetup(std::string_view line) {
  return find(line, {{"%%BeginFeature:", DscComment::BeginFeature},
                     {"%%IncludeFeature:", DscComment::IncludeFeature},
                     {"%%EndSetup", DscComment::EndSetup},
                     {"%%Page:", DscComment::Page},
                     {"%%Trailer", DscComment::Trailer}});
}

DscComment inPage(std::string_view line) {
  return find(line, {{"%%Page:", DscComment::Page},
                     {"%%PageTrailer", DscComment::None},
                     {"%%Page", DscComment::PageComment},
                     {"%%BeginPageSetup", DscComment::BeginPageSetup},
                     {"%%BeginFeature:", DscComment::BeginFeature},
                     {"%%IncludeFeature:", DscComment::IncludeFeature},
                     {"%%Trailer", DscComment::Trailer},
                     {"%%EOF", DscComment::Eof}});
}

}  // namespace

DscReader::DscReader(Source source, std::size_t bufferSize, DscSection section)
    : source_(std::move(source)),
      buffer_(std::max(bufferSize, kSmallestBuffer)),
      section_(section) {}

std::optional<DscPiece> DscReader::next() {
  if (begin_ == end_ && !fill()) return std::nullopt;
  if (insideLine_) return restOfLine();
  if (dataBytes_ != 0 || dataLines_ != 0) return data();
  return nextStructure();
}

// Looks for percent signs instead of lines: most lines have none.
std::optional<DscPiece> DscReader::nextStructure() {
  std::size_t at = begin_;
  while (true) {
    const void* found = std::memchr(buffer_.data() + at, '%', end_ - at);
    if (found == nullptr) return take(end_ - begin_, DscComment::None);
    at = static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.data());
    if (!mayBeComment(at)) {
      ++at;
      continue;
    }
    std::optional<std::size_t> length = lineLength(at);
    if (!length && at > begin_) return take(at - begin_, DscComment::None);
    if (!length) {
      length = wholeLine();
      at = begin_;
    }
    const std::string_view line(buffer_.data() + at, length.value_or(partOfLine()));
    const DscComment comment = classify(line);
    if (comment != DscComment::None) {
      if (at > begin_) return take(at - begin_, DscComment::None);
      insideLine_ = !length;
      enter(comment);
      return take(line.size(), comment);
    }
    at += line.size();
    if (!length || beginsData(line)) {
      insideLine_ = !length;
      return take(at - begin_, DscComment::None);
    }
    followEmbedding(line);
  }
}

DscPiece DscReader::restOfLine() {
  const std::optional<std::size_t> length = lineAhead();
  insideLine_ = !length;
  return take(length.value_or(partOfLine()), DscComment::Rest);
}

DscPiece DscReader::data() {
  if (dataBytes_ != 0) {
    const std::size_t length = std::min<std::uint64_t>(dataBytes_, end_ - begin_);
    dataBytes_ -= length;
    return take(length, DscComment::None);
  }
  const std::optional<std::size_t> length = lineAhead();
  if (length) --dataLines_;
  return take(length.value_or(partOfLine()), DscComment::None);
}

// Reads more behind what is there; false when there is no more, or no room. Moves what is there to
// the buffer's beginning.
bool DscReader::fill() {
  if (begin_ != 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= std::exchange(begin_, 0);
  }
  if (atEnd_ || end_ == buffer_.size()) return false;
  const std::size_t length = source_(buffer_.data() + end_, buffer_.size() - end_);
  atEnd_ = length == 0;
  end_ += length;
  return !atEnd_;
}

// Whether the percent sign begins a line, and one with a comment that may be structure.
bool DscReader::mayBeComment(std::size_t at) const {
  if (!endsLine(at == begin_ ? last_ : buffer_[at - 1])) return false;
  if (at + 1 == end_) return true;
  const char second = buffer_[at + 1];
  return second == '%' || second == '!' || second == 'A';
}

// With the line end; nothing when that was not read yet. At the document's end everything ends.
std::optional<std::size_t> DscReader::lineLength(std::size_t at) const {
  const char* first = buffer_.data() + at;
  const char* last = buffer_.data() + end_;
  const char* end = std::find_if(first, last, endsLine);
  if (end == last || (*end == '\r' && end + 1 == last)) {
    if (atEnd_) return end_ - at;
    return std::nullopt;
  }
  end += *end == '\r' && end[1] == '\n' ? 2 : 1;
  return static_cast<std::size_t>(end - first);
}

// The length of the line that comes next, for which the buffer is filled up if need be; nothing
// when the line is longer than that.
std::optional<std::size_t> DscReader::wholeLine() {
  std::optional<std::size_t> length = lineLength(begin_);
  while (!length && fill())
    length = lineLength(begin_);
  return length ? length : lineLength(begin_);
}

// The same from what was read already, but for a lone CR, which is one line end with an LF.
std::optional<std::size_t> DscReader::lineAhead() {
  return end_ - begin_ == 1 ? wholeLine() : lineLength(begin_);
}

// How much of a line whose end was not read can be handed out. A CR waits for what follows it.
std::size_t DscReader::partOfLine() const {
  const std::size_t length = end_ - begin_;
  return length > 1 && buffer_[end_ - 1] == '\r' ? length - 1 : length;
}

DscPiece DscReader::take(std::size_t length, DscComment comment) {
  const DscPiece piece{section_, comment, {buffer_.data() + begin_, length}};
  last_ = piece.bytes.back();
  begin_ += length;
  return piece;
}

DscComment DscReader::classify(std::string_view line) const {
  if (embedded_ != 0) return DscComment::None;
  switch (section_) {
    case DscSection::Preamble:
      return find(line, {{"%!", DscComment::Start}});
    case DscSection::Header:
      return inHeader(line);
    case DscSection::Prolog:
      return beforePages(line);
    case DscSection::Setup:
      return inSetup(line);
    case DscSection::Page:
      return inPage(line);
    case DscSection::Trailer:
      return find(line, {{"%%Pages:", DscComment::Pages}, {"%%EOF", DscComment::Eof}});
    case DscSection::After:
      break;
  }
  return DscComment::None;
}

void DscReader::enter(DscComment comment) {
  switch (comment) {
    case DscComment::Start:
      section_ = DscSection::Header;
      break;
    case DscComment::EndComments:
    case DscComment::BeginProlog:
      section_ = DscSection::Prolog;
      break;
    case DscComment::BeginSetup:
      section_ = DscSection::Setup;
      break;
    case DscComment::Page:
      section_ = DscSection::Page;
      break;
    case DscComment::Trailer:
      section_ = DscSection::Trailer;
      break;
    case DscComment::Eof:
      section_ = DscSection::After;
      break;
    default:
      break;
  }
}

// %%BeginData: NUMBER [TYPE [Bytes|Lines]], %%BeginBinary: NUMBER.
bool DscReader::beginsData(std::string_view line) {
  if (section_ == DscSection::Preamble || section_ == DscSection::After) return false;
  if (!line.starts_with("%%BeginData:") && !line.starts_with("%%BeginBinary:")) return false;
  line.remove_prefix(line.find(':') + 1);
  const std::string_view digits = takeWord(line);
  std::uint64_t number = 0;
  const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (parsed.ec != std::errc()) return false;
  takeWord(line);
  (takeWord(line) == "Lines" ? dataLines_ : dataBytes_) = number;
  return number != 0;
}

void DscReader::followEmbedding(std::string_view line) {
  if (section_ == DscSection::Preamble || section_ == DscSection::After) return;
  if (line.starts_with("%%BeginDocument") || line.starts_with("%ADO_BeginApplication")) {
    ++embedded_;
  } else if ((line.starts_with("%%EndDocument") || line.starts_with("%ADO_EndApplication")) &&
             embedded_ > 0) {
    --embedded_;
  }
}

}  // namespace publishing
