// SPDX-License-Identifier: MIT
#include "macros/command_arguments.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace vbr {
namespace {

constexpr char16_t kQuote = u'"';
constexpr char16_t kBackslash = u'\\';
constexpr std::u16string_view kWordEnds = u" \t\"/,;=()&|<>";
constexpr std::u16string_view kCmdSigns = u"\"%!^&|<>";
constexpr std::u16string_view kCmdBlockSigns = u"()";
// Beside letters and digits: what no parser of a command line takes for more than itself.
constexpr std::u16string_view kPlainSigns = u"_-.:\\/@+~";

bool Holds(std::u16string_view signs, char16_t c) {
    return signs.find(c) != signs.npos;
}

bool IsPlain(char16_t c) {
    return (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
           Holds(kPlainSigns, c);
}

// Writes parameters unit by unit. It reads what the phrase wrote as the program will: backslashes
// count by themselves unless a quote follows.
class ArgumentWriter {
  public:
    void Write(char16_t c);
    void WriteValue(std::u16string_view value);
    std::u16string Finish();

  private:
    void Toggle();
    void Open();
    void Close();
    void PutQuote(bool isMeant);
    void Put(char16_t c);
    // Backslashes of the phrase that no quote follows are meant themselves.
    void MeanWritten() { meant_ += std::exchange(written_, 0); }

    std::u16string out_;
    std::size_t written_ = 0;  // backslashes of the phrase up to here, not read yet
    std::size_t meant_ = 0;    // backslashes of the argument that are not in the output yet
    bool inQuotes_ = false;    // of the phrase
    bool isOpen_ = false;      // a quote of the output, until the phrase's end or the word's
    bool closes_ = false;      // the phrase ended its quotes; a value behind them joins them
    std::size_t word_ = 0;     // where the word of plain characters begins in the output
    bool hasQuotes_ = false;   // the word
};

void ArgumentWriter::Write(char16_t c) {
    if (closes_ && c != kQuote) {
        Close();
    }
    if (c == kBackslash) {
        ++written_;
        return;
    }
    if (c == kQuote) {
        const bool isMeant = written_ % 2 != 0;
        meant_ += std::exchange(written_, 0) / 2;
        isMeant ? PutQuote(true) : Toggle();
        return;
    }
    MeanWritten();
    const bool endsWord = !inQuotes_ && !IsPlain(c);
    if (endsWord && isOpen_) {
        Close();
    }
    Put(c);
    if (endsWord) {
        word_ = out_.size();
        hasQuotes_ = false;
    }
}

void ArgumentWriter::Toggle() {
    if (closes_) {
        Close();
    }
    closes_ = inQuotes_;
    inQuotes_ = !inQuotes_;
    if (inQuotes_ && !isOpen_) {
        PutQuote(false);
        isOpen_ = true;
    }
}

void ArgumentWriter::WriteValue(std::u16string_view value) {
    MeanWritten();
    closes_ = false;
    if (!isOpen_ && !std::all_of(value.begin(), value.end(), IsPlain)) {
        Open();
    }
    for (const char16_t c : value) {
        if (c == kBackslash) {
            ++meant_;
        } else if (c == kQuote) {
            PutQuote(true);
        } else {
            Put(c);
        }
    }
}

// Behind a folder the whole word is quoted: many programs know no quotes within a path.
void ArgumentWriter::Open() {
    if (meant_ > 0 && !hasQuotes_) {
        out_.insert(word_, 1, kQuote);
        hasQuotes_ = true;
    } else {
        PutQuote(false);
    }
    isOpen_ = true;
}

void ArgumentWriter::Close() {
    PutQuote(false);
    isOpen_ = false;
    closes_ = false;
}

void ArgumentWriter::PutQuote(bool isMeant) {
    out_.append(2 * std::exchange(meant_, 0) + (isMeant ? 1 : 0), kBackslash);
    out_ += kQuote;
    hasQuotes_ = hasQuotes_ || !isMeant;
}

void ArgumentWriter::Put(char16_t c) {
    out_.append(std::exchange(meant_, 0), kBackslash);
    out_ += c;
}

std::u16string ArgumentWriter::Finish() {
    MeanWritten();
    if (isOpen_ && !inQuotes_) {
        Close();
    }
    out_.append(std::exchange(meant_, 0), kBackslash);
    return std::move(out_);
}

bool IsCmdName(std::u16string_view path) {
    const std::u16string_view name = TrimRight(path.substr(path.find_last_of(u"\\/:") + 1), u" .");
    for (const std::u16string_view processor : {u"cmd", u"cmd.exe", u"command", u"command.com"}) {
        if (EqualsNoCase(name, processor)) {
            return true;
        }
    }
    for (const std::u16string_view extension : {u".bat", u".cmd", u".lnk", u".pif"}) {
        if (EndsWithNoCase(name, extension)) {
            return true;
        }
    }
    return false;
}

std::u16string WrittenText(const CommandText& command) {
    std::u16string text;
    for (std::size_t at = 0; at < command.Size(); ++at) {
        text += command.IsValue(at) ? u' ' : command.Text()[at];
    }
    return text;
}

}  // namespace

std::u16string ArgumentText(const CommandText& parameters) {
    const std::u16string_view text = parameters.Text();
    ArgumentWriter writer;
    for (std::size_t at = 0; at < text.size();) {
        if (!parameters.IsValue(at)) {
            writer.Write(text[at++]);
            continue;
        }
        const std::size_t end = parameters.FindWritten(at);
        writer.WriteValue(text.substr(at, end - at));
        at = end;
    }
    return writer.Finish();
}

bool IsReadByCmd(std::u16string_view program, const CommandText& parameters) {
    if (IsCmdName(program)) {
        return true;
    }
    const std::u16string written = WrittenText(parameters);
    const std::u16string_view text = written;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of(kWordEnds, at), text.size());
        if (IsCmdName(text.substr(at, end - at))) {
            return true;
        }
        at = end + 1;
    }
    return false;
}

CommandText WithoutCmdSigns(const CommandText& parameters) {
    // A bracket means something to a line that has blocks, and stands in the names of folders.
    const bool hasBlocks = WrittenText(parameters).find(u'(') != std::u16string::npos;
    CommandText out;
    for (std::size_t at = 0; at < parameters.Size(); ++at) {
        const bool isValue = parameters.IsValue(at);
        char16_t c = parameters.Text()[at];
        if (isValue && (Holds(kCmdSigns, c) || (hasBlocks && Holds(kCmdBlockSigns, c)))) {
            c = u' ';
        }
        out.Append({&c, 1}, isValue);
    }
    return out;
}

}  // namespace vbr
