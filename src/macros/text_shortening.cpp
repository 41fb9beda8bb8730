// SPDX-License-Identifier: MIT
#include "macros/text_shortening.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kTrimmed = u" \t\r\n\v\b";
constexpr std::u16string_view kLineTrimmed = u"¶ \t\r\n";
constexpr std::u16string_view kHeadBreaks = u" \r\n\t,;?!^()+-\\/@|&*\"'";
constexpr auto kIsHeadBreak = [] {
    std::array<bool, 128> marks{};
    for (const char16_t c : kHeadBreaks) {
        marks[c] = true;
    }
    return marks;
}();
constexpr std::u16string_view kTailBreaks = u" \t";  // line ends are blanks by then
constexpr std::u16string_view kUrlBreaks = u"/&?";
constexpr std::size_t kUrlHeadFallback = 20;

bool IsHeadBreak(char16_t c) {
    return c < kIsHeadBreak.size() && kIsHeadBreak[c];
}

// Where the last `maxUnits` units start; a pair is not halved.
std::size_t TailStart(std::u16string_view text, std::size_t maxUnits) {
    std::size_t start = text.size() - std::min(maxUnits, text.size());
    if (start > 0 && start < text.size() && IsLowSurrogate(text[start])) {
        ++start;
    }
    return start;
}

// What is left of a run of blanks when one takes the place of each three, and then of each two.
std::size_t BlanksLeft(std::size_t run) {
    const std::size_t withoutThrees = run / 3 + run % 3;
    return withoutThrees / 2 + withoutThrees % 2;
}

// Reads a text as one line shows it, from either end, and no further than is asked for.
class LineReader {
  public:
    LineReader(std::u16string_view text, LineEnds lineEnds) : text_(text), lineEnds_(lineEnds) {}

    // The line's start; more units than `limit` when the line has more. A line that goes on keeps
    // the blanks at its end.
    std::u16string ReadStart(std::size_t limit, bool goesOn = false) const {
        // Nothing is shown longer than it is.
        std::u16string line(std::min(text_.size(), limit + 1), u' ');
        std::size_t end = 0;
        std::size_t blanks = 0;
        for (std::size_t i = 0; i < text_.size() && end < line.size(); ++i) {
            if (text_[i] > u' ' && blanks == 0) {
                line[end++] = text_[i];
                continue;
            }
            i += IsCrLf(i) ? 1 : 0;
            if (const std::size_t width = BlankWidth(text_[i])) {
                blanks += width;
                continue;
            }
            if (blanks > 0) {
                end = std::min(end + BlanksLeft(blanks), line.size() - 1);
                blanks = 0;
            }
            line[end++] = Shown(text_[i]);
        }
        end += goesOn ? std::min(BlanksLeft(blanks), line.size() - end) : 0;
        line.resize(end);
        return line;
    }

    // How many units of the line, at most `limit` and one, stand before that place of the text.
    std::size_t UnitsBefore(std::size_t place, std::size_t limit) const {
        const auto read = [&](std::size_t end) {
            return LineReader(text_.substr(0, end), lineEnds_).ReadStart(limit, true).size();
        };
        // A run of blanks may be shorter than a part of it.
        std::size_t runEnd = place;
        while (runEnd < text_.size() && BlankWidth(text_[runEnd]) > 0) {
            ++runEnd;
        }
        return std::min(read(place), read(runEnd));
    }

    // How many units of the line, at most `limit` and one, stand behind that place of the text.
    std::size_t UnitsBehind(std::size_t place, std::size_t limit) const {
        return LineReader(text_.substr(place), lineEnds_).ReadStart(limit).size();
    }

    // The last units of the line, `count` or a few more, or the whole line.
    std::u16string ReadEnd(std::size_t count) const {
        std::size_t start = text_.size();
        std::size_t units = 0;
        std::size_t blanks = 0;
        while (start > 0 && units < count) {
            --start;
            start -= start > 0 && IsCrLf(start - 1) ? 1 : 0;
            if (const std::size_t width = BlankWidth(text_[start])) {
                blanks += width;
                continue;
            }
            units += (blanks > 0 ? BlanksLeft(blanks) : 0) + 1;
            blanks = 0;
        }
        return LineReader(text_.substr(start), lineEnds_).ReadStart(text_.npos - 1);
    }

  private:
    bool IsCrLf(std::size_t i) const {
        return text_[i] == u'\r' && i + 1 < text_.size() && text_[i + 1] == u'\n';
    }
    static bool IsLineEnd(char16_t unit) { return unit == u'\r' || unit == u'\n'; }

    // How many blanks the unit counts for.
    std::size_t BlankWidth(char16_t unit) const {
        if (unit > u' ') {
            return 0;
        }
        if (lineEnds_ == LineEnds::Shown) {
            return unit == u' ' ? 1 : unit == u'\t' ? 2 : 0;
        }
        return unit == u' ' || IsLineEnd(unit) ? 1 : 0;
    }
    static char16_t Shown(char16_t unit) { return unit < u' ' && IsLineEnd(unit) ? u'¶' : unit; }

    std::u16string_view text_;
    LineEnds lineEnds_;
};

std::optional<std::u16string> ShortenUrl(std::u16string_view text, std::size_t limit) {
    constexpr std::u16string_view kProtocols[] = {u"http://", u"https://", u"ftp://"};
    const auto protocol =
        std::find_if(std::begin(kProtocols), std::end(kProtocols),
                     [text](std::u16string_view p) { return StartsWithNoCase(text, p); });
    const std::size_t lastBreak = text.find_last_of(kUrlBreaks);
    if (protocol == std::end(kProtocols) || lastBreak == text.npos) {
        return std::nullopt;
    }
    std::u16string_view tail = text.substr(lastBreak + 1);
    const std::size_t slash = text.find(u'/', protocol->size());
    std::u16string_view head;
    if (slash != text.npos && slash <= lastBreak) {
        head = text.substr(0, slash + 1);
    } else {
        head = CutUnits(text, tail.size() <= limit ? limit - tail.size() : kUrlHeadFallback);
    }
    if (head.size() > limit) {
        head = CutUnits(head, limit / 2);
        tail = tail.substr(TailStart(tail, std::min(limit / 2, limit - head.size())));
    } else {
        tail = tail.substr(TailStart(tail, limit - head.size()));
    }
    return Concat(head, u" … ", tail);
}

}  // namespace

std::u16string ShortenTitle(std::u16string_view text, int limit) {
    std::u16string title(Trim(text, kTrimmed));
    const std::size_t lineEnd = title.find_first_of(u"\t\r\n\v\b", 2);
    title = title.substr(0, lineEnd);
    if (limit != kNoLimit && title.size() > static_cast<std::size_t>(limit)) {
        title = Concat(CutUnits(title, static_cast<std::size_t>(limit)), u"…");
    }
    for (const std::u16string_view what :
         {u"\r\n", u"\n", u"\r", u"\t", u"\r\r", u"\v", u"\b", u"\v\b"}) {
        ReplaceAll(title, what, u" ");
    }
    return title;
}

std::u16string ShortenMiddle(std::u16string_view text, std::size_t limit, LineEnds lineEnds,
                             std::size_t* place) {
    const std::u16string_view trimmed = Trim(text, kLineTrimmed);
    const LineReader reader(trimmed, lineEnds);
    if (place) {
        const std::size_t start = text.size() - TrimLeft(text, kLineTrimmed).size();
        *place = std::clamp(*place, start, start + trimmed.size()) - start;
    }
    std::u16string line = reader.ReadStart(limit);
    if (line.size() <= limit) {
        if (place) {
            *place = reader.UnitsBefore(*place, limit);
        }
        return line;
    }
    const std::size_t half = limit / 2;
    const std::u16string_view start = CutUnits(line, half);
    std::size_t headBreak = start.size();
    while (headBreak > 0 && !IsHeadBreak(start[headBreak - 1])) {
        --headBreak;
    }
    const std::u16string_view head = headBreak > 1 ? start.substr(0, headBreak - 1) : start;
    // One unit more tells whether the first one is half of a pair.
    const std::u16string end = reader.ReadEnd(half + 1);
    const std::size_t tailFrom = TailStart(end, half);
    const std::size_t tailBreak = end.find_first_of(kTailBreaks, tailFrom);
    const std::size_t tailStart = tailBreak == end.npos ? tailFrom : tailBreak + 1;
    const std::u16string_view tail = std::u16string_view(end).substr(tailStart);
    if (place) {
        const std::size_t behind = reader.UnitsBehind(*place, limit);
        *place = behind <= tail.size() ? head.size() + 1 + tail.size() - behind
                                       : std::min(head.size(), reader.UnitsBefore(*place, limit));
    }
    return Concat(head, u"…", tail);
}

std::u16string ShortenUrlOrText(std::u16string_view text, std::size_t limit) {
    const std::u16string_view trimmed = Trim(text, kTrimmed);
    if (trimmed.size() <= limit) {
        return std::u16string(trimmed);
    }
    if (std::optional<std::u16string> url = ShortenUrl(trimmed, limit)) {
        return *url;
    }
    return ShortenMiddle(trimmed, limit);
}

}  // namespace vbr
