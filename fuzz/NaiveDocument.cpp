// SPDX-License-Identifier: Apache-2.0
#include "fuzz/NaiveDocument.h"

#include <cerrno>
#include <cstdlib>

#include "programs/filter/SheetWriter.h"

namespace publishing {
namespace {

bool begins(const std::string& line, const char* text) {
  return line.rfind(text, 0) == 0;
}

bool endsLine(char byte) {
  return byte == '\n' || byte == '\r';
}

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  NaiveDocument read() {
    while (place_ < text_.size()) {
      const bool atLineStart = place_ == 0 || endsLine(text_[place_ - 1]);
      const std::string line = takeLine();
      DscComment comment = DscComment::None;
      if (atLineStart && embedded_ == 0) comment = commentOf(line);
      section_ = sectionFrom(comment);
      add(comment, line);
      if (atLineStart && comment == DscComment::None) follow(line);
    }
    found_.isUnfinished = embedded_ > 0 || dataIsMissing_;
    return found_;
  }

 private:
  std::string takeLine() {
    const std::size_t first = place_;
    while (place_ < text_.size() && !endsLine(text_[place_]))
      ++place_;
    if (place_ < text_.size()) ++place_;
    const bool crlf = place_ < text_.size() && text_[place_] == '\n' && text_[place_ - 1] == '\r';
    if (crlf) ++place_;
    return std::string(text_.substr(first, place_ - first));
  }

  DscComment commentOf(const std::string& line) const {
    switch (section_) {
      case DscSection::Preamble:
        return begins(line, "%!") ? DscComment::Start : DscComment::None;
      case DscSection::Header:
        if (begins(line, "%%Pages:")) return DscComment::Pages;
        if (begins(line, "%%DocumentMedia:")) return DscComment::DocumentMedia;
        if (begins(line, "%%EndComments")) return DscComment::EndComments;
        [[fallthrough]];
      case DscSection::Prolog:
        if (begins(line, "%%BeginSetup")) return DscComment::BeginSetup;
        if (begins(line, "%%BeginProlog")) return DscComment::BeginProlog;
        if (begins(line, "%%BeginDefaults")) return DscComment::BeginProlog;
        return begins(line, "%%Page:") ? DscComment::Page : DscComment::None;
      case DscSection::Setup:
        if (begins(line, "%%EndSetup")) return DscComment::EndSetup;
        break;
      case DscSection::Page:
        if (begins(line, "%%PageTrailer")) return DscComment::None;
        if (begins(line, "%%EOF")) return DscComment::Eof;
        if (begins(line, "%%BeginPageSetup")) return DscComment::BeginPageSetup;
        if (begins(line, "%%Page") && !begins(line, "%%Page:")) return DscComment::PageComment;
        break;
      case DscSection::Trailer:
        if (begins(line, "%%Pages:")) return DscComment::Pages;
        return begins(line, "%%EOF") ? DscComment::Eof : DscComment::None;
      case DscSection::After:
        return DscComment::None;
    }
    if (begins(line, "%%Page:")) return DscComment::Page;
    if (begins(line, "%%Trailer")) return DscComment::Trailer;
    if (begins(line, "%%BeginFeature:")) return DscComment::BeginFeature;
    return begins(line, "%%IncludeFeature:") ? DscComment::IncludeFeature : DscComment::None;
  }

  DscSection sectionFrom(DscComment comment) const {
    if (comment == DscComment::Start) return DscSection::Header;
    if (comment == DscComment::EndComments || comment == DscComment::BeginProlog)
      return DscSection::Prolog;
    if (comment == DscComment::BeginSetup) return DscSection::Setup;
    if (comment == DscComment::Page) return DscSection::Page;
    if (comment == DscComment::Trailer) return DscSection::Trailer;
    return comment == DscComment::Eof ? DscSection::After : section_;
  }

  void add(DscComment comment, const std::string& bytes) {
    if (bytes.empty()) return;
    std::vector<NaivePiece>& pieces = found_.pieces;
    if (comment == DscComment::Page) ++found_.pages;
    if (comment == DscComment::None && !pieces.empty() &&
        pieces.back().comment == DscComment::None && pieces.back().section == section_) {
      pieces.back().bytes += bytes;
    } else {
      pieces.push_back({section_, comment, bytes});
    }
  }

  void follow(const std::string& line) {
    if (section_ == DscSection::Preamble || section_ == DscSection::After) return;
    if (begins(line, "%%BeginDocument") || begins(line, "%ADO_BeginApplication")) ++embedded_;
    if (begins(line, "%%EndDocument") || begins(line, "%ADO_EndApplication"))
      embedded_ = embedded_ > 0 ? embedded_ - 1 : 0;
    if (begins(line, "%%BeginData:") || begins(line, "%%BeginBinary:")) takeData(line);
  }

  void takeData(const std::string& line) {
    std::vector<std::string> words(1);
    for (const char byte : line.substr(line.find(':') + 1)) {
      if (endsLine(byte)) break;
      if (byte != ' ' && byte != '\t') {
        words.back() += byte;
      } else if (!words.back().empty()) {
        words.emplace_back();
      }
    }
    words.resize(3);
    if (words[0].empty() || words[0][0] < '0' || words[0][0] > '9') return;
    errno = 0;
    unsigned long long count = std::strtoull(words[0].c_str(), nullptr, 10);
    if (errno == ERANGE) return;
    if (words[2] == "Lines") {
      for (; count > 0 && place_ < text_.size(); --count)
        add(DscComment::None, takeLine());
    } else {
      const std::string data(text_.substr(place_, count));
      place_ += data.size();
      count -= data.size();
      add(DscComment::None, data);
    }
    dataIsMissing_ = count > 0;
  }

  std::string_view text_;
  std::size_t place_ = 0;
  DscSection section_ = DscSection::Preamble;
  int embedded_ = 0;
  bool dataIsMissing_ = false;
  NaiveDocument found_;
};

class Writer {
 public:
  Writer(const NaiveDocument& document, const SheetPlan& plan, const SheetCode& code)
      : document_(document), plan_(plan), code_(code) {}

  std::string write() {
    for (std::size_t i = 0; i < document_.pieces.size(); ++i) {
      const NaivePiece& piece = document_.pieces[i];
      if (piece.comment == DscComment::Page) pageStarts_.push_back(i);
      if (piece.section < DscSection::Page) writeFront(piece);
    }
    writePages();
    for (const NaivePiece& piece : document_.pieces) {
      if (piece.section > DscSection::Page) writeBack(piece);
    }
    if (document_.pages > 0 && !totalWritten_) writeTotal();
    return text_;
  }

 private:
  void line(const std::string& text) {
    if (text.empty()) return;
    if (!text_.empty() && !endsLine(text_.back())) text_ += '\n';
    text_ += text;
    if (text_.back() != '\n') text_ += '\n';
  }

  void writeFront(const NaivePiece& piece) {
    if (piece.comment == DscComment::Pages) return line("%%Pages: (atend)");
    if (piece.comment == DscComment::EndSetup && !setupWritten_) {
      line(code_.setup);
      setupWritten_ = true;
    }
    text_ += piece.bytes;
    if (piece.comment == DscComment::Start) line(kSheetsMark);
  }

  void writePages() {
    if (document_.pages == 0) return;
    if (!setupWritten_) {
      line("%%BeginSetup");
      line(code_.setup);
      line("%%EndSetup");
    }
    const int sets = plan_.collated ? plan_.copies : 1;
    for (int set = 0; set < sets; ++set) {
      std::string medium;
      bool begins = sets > 1;
      for (const Sheet& sheet : plan_.sheets) {
        std::string code = begins ? code_.newSet : "";
        if (begins || sheet.medium != medium) code += code_.media.at(sheet.medium);
        begins = false;
        medium = sheet.medium;
        writeSide(sheet.front, code);
        if (sheet.back) writeSide(*sheet.back, "");
      }
    }
  }

  void writeSide(int page, const std::string& code) {
    ++sides_;
    if (page == kBlankSide) {
      line("%%Page: (blank) " + std::to_string(sides_));
      line("%%PageBoundingBox: 0 0 0 0");
      writeBlock(code);
      return line("gsave systemdict/showpage get exec grestore");
    }
    std::size_t piece = pageStarts_.at(static_cast<std::size_t>(page) - 1);
    line("%%Page: " + pageLabel(document_.pieces[piece].bytes) + " " + std::to_string(sides_));
    bool placed = false;
    for (++piece; isInPage(piece); ++piece) {
      const NaivePiece& part = document_.pieces[piece];
      const bool isSetup = part.comment == DscComment::BeginPageSetup;
      if (!placed && !isSetup && part.comment != DscComment::PageComment) {
        writeBlock(code);
        placed = true;
      }
      text_ += part.bytes;
      if (!placed && isSetup) {
        line(code);
        placed = true;
      }
    }
    if (!placed) writeBlock(code);
  }

  bool isInPage(std::size_t piece) const {
    return piece < document_.pieces.size() && document_.pieces[piece].section == DscSection::Page &&
           document_.pieces[piece].comment != DscComment::Page;
  }

  void writeBlock(const std::string& code) {
    if (code.empty()) return;
    line("%%BeginPageSetup");
    line(code);
    line("%%EndPageSetup");
  }

  void writeBack(const NaivePiece& piece) {
    if (piece.comment == DscComment::Trailer) {
      hasTrailer_ = true;
      text_ += piece.bytes;
      return returnToBody();
    }
    if (document_.pages > 0 && piece.comment == DscComment::Pages) return writeTotal();
    if (document_.pages > 0 && piece.comment == DscComment::Eof && !totalWritten_) writeTotal();
    text_ += piece.bytes;
  }

  void writeTotal() {
    if (!hasTrailer_) {
      line("%%Trailer");
      returnToBody();
    }
    line("%%Pages: " + std::to_string(sides_));
    hasTrailer_ = true;
    totalWritten_ = true;
  }

  void returnToBody() {
    if (!plan_.sheets.empty() && !plan_.sheets.back().medium.empty()) line(code_.media.at(""));
  }

  const NaiveDocument& document_;
  const SheetPlan& plan_;
  const SheetCode& code_;
  std::string text_;
  std::vector<std::size_t> pageStarts_;
  bool setupWritten_ = false;
  bool hasTrailer_ = false;
  bool totalWritten_ = false;
  int sides_ = 0;
};

}  // namespace

NaiveDocument readNaively(std::string_view document) {
  return Reader(document).read();
}

std::string writeNaively(const NaiveDocument& document, const SheetPlan& plan,
                         const SheetCode& code) {
  return Writer(document, plan, code).write();
}

}  // namespace publishing
