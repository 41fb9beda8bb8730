// SPDX-License-Identifier: MIT
#include "macros/text_shortening.h"

#include <algorithm>
#include <optional>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kTrimmed = u" \t\r\n\v\b";
constexpr std::u16string_view kHeadBreaks = u" \r\n\t,;?!^()+-\\/@|&*\"'";
constexpr std::u16string_view kTailBreaks = u" \r\n\t";
constexpr std::u16string_view kUrlBreaks = u"/&?";
constexpr std::size_t kUrlHeadFallback = 20;

// Where the last `maxUnits` units start; a pair is not halved.
std::size_t TailStart(std::u16string_view text, std::size_t maxUnits) {
    std::size_t start = text.size() - std::min(maxUnits, text.size());
    if (start > 0 && start < text.size() && (text[start] & 0xFC00) == 0xDC00) {
        ++start;
    }
    return start;
}

std::u16string OnOneLine(std::u16string_view text) {
    std::u16string line(text);
    for (const std::u16string_view lineEnd : {u"\r\n", u"\n", u"\r"}) {
        ReplaceAll(line, lineEnd, u" ");
    }
    ReplaceAll(line, u"   ", u" ");
    ReplaceAll(line, u"  ", u" ");
    return std::u16string(Trim(line, u"¶ \t\r"));
}

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

std::u16string ShortenMiddle(std::u16string_view text, std::size_t limit) {
    std::u16string line = OnOneLine(text);
    if (line.size() <= limit) {
        return line;
    }
    const std::size_t half = limit / 2;
    const std::u16string_view start = CutUnits(line, half);
    const std::size_t headBreak = start.find_last_of(kHeadBreaks);
    const std::u16string_view head =
        headBreak != start.npos && headBreak > 0 ? start.substr(0, headBreak) : start;
    const std::size_t tailFrom = TailStart(line, half);
    const std::size_t tailBreak = line.find_first_of(kTailBreaks, tailFrom);
    const std::size_t tailStart = tailBreak == line.npos ? tailFrom : tailBreak + 1;
    return Concat(head, u"…", std::u16string_view(line).substr(tailStart));
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
