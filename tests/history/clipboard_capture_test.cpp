// SPDX-License-Identifier: MIT
#include "history/clipboard_capture.h"

#include <algorithm>
#include <map>

#include "fakes/fake_ansi_text.h"
#include "fakes/fake_clipboard_access.h"
#include "fakes/fake_clock.h"
#include "fakes/history_fixture.h"
#include "fakes/text_cases.h"
#include "history/change_capture.h"
#include "history/owner_info.h"
#include "history/source_url.h"

namespace vbr {
namespace {

constexpr std::u16string_view kRtf = u"Rich Text Format";
constexpr std::u16string_view kHtml = u"HTML Format";
constexpr std::u16string_view kKelp = u"Kelp Notes Format";

class FakeWindows : public ProgramWindows {
  public:
    std::map<WindowHandle, WindowHandle> Parents;
    std::map<WindowHandle, std::u16string> Titles;
    std::map<WindowHandle, std::u16string> Programs;
    IconHandle FileIcon;

    WindowHandle ParentOf(WindowHandle window) const override { return Get(Parents, window); }
    std::u16string TitleOf(WindowHandle window) const override { return Get(Titles, window); }
    std::u16string ProgramOf(WindowHandle window) const override { return Get(Programs, window); }
    IconHandle IconOf(WindowHandle) const override { return {}; }
    IconHandle IconOfFile(std::u16string_view) const override { return FileIcon; }

  private:
    template <typename Value>
    static Value Get(const std::map<WindowHandle, Value>& values, WindowHandle window) {
        const auto found = values.find(window);
        return found == values.end() ? Value() : found->second;
    }
};

// A bitmap's object is its width.
class FakeBitmaps : public Bitmaps {
  public:
    std::shared_ptr<const Bitmap> FromObject(std::shared_ptr<void> object) override {
        const auto width = *std::static_pointer_cast<std::int32_t>(object);
        return width == 0 ? nullptr : std::make_shared<FakeBitmap>(width, std::byte{1});
    }
    std::shared_ptr<void> ObjectOf(const Bitmap&) override { return nullptr; }
};

class Capture : public testing::Test {
  protected:
    ClipboardBlock Picture(std::int32_t width) {
        return {.Format = kClipBitmap, .Object = std::make_shared<std::int32_t>(width)};
    }
    // What was captured: format, text, alternatives and source, or "nothing".
    std::u16string Captured(std::vector<ClipboardBlock> blocks) {
        clipboard_.Copy(std::move(blocks));
        const auto item = capture_.Capture(0, 0).Item;
        EXPECT_FALSE(clipboard_.IsOpen());
        if (!item) {
            return u"nothing";
        }
        std::u16string text = item->format == CHF_UNICODE_TEXT ? std::u16string(item->WideText())
                                                               : Utf8ToUtf16(item->ByteText());
        text = Concat(static_cast<int>(item->format), u":", text, u"/", item->Size());
        for (const auto& alternative : item->alternatives) {
            text += Concat(u" ", static_cast<int>(alternative->format), u":",
                           Utf8ToUtf16(alternative->ByteText()));
        }
        return item->sourceUrl.empty() ? text : Concat(text, u" @", item->sourceUrl);
    }

    MemoryLog log_;
    Journal calls_;
    FakeClipboardAccess clipboard_{&calls_};
    FakeWindows windows_;
    FakeClock clock_;
    MyCopyGuard myCopy_{clipboard_, FakeClipboardAccess::kOwnProcess, log_};
    KeptFormats kept_ = {true, true, true, true, true};
    FakeAnsiText ansi_;
    FakeBitmaps bitmaps_;
    ClipboardCapture capture_{{.Access = clipboard_,
                               .Windows = windows_,
                               .Clock = clock_,
                               .MyCopy = myCopy_,
                               .Kept = kept_,
                               .Ansi = ansi_,
                               .Bitmaps = bitmaps_,
                               .Log = log_}};
};

TEST_F(Capture, FirstFormatOfTheChainBecomesTheItem) {
    const auto text = [](std::u16string_view value) {
        return FakeClipboardAccess::Text(std::u16string(value));
    };
    const auto rtf = clipboard_.Named(kRtf, "{r}");
    const auto html = clipboard_.Named(kHtml, "<h>");
    const auto kelp = clipboard_.Named(kKelp, std::string_view("k\0y", 3));
    const auto ansi = FakeClipboardAccess::Memory(kClipText, std::string_view("\xE9t\0", 3));
    const auto locale = FakeClipboardAccess::Memory(16, std::string_view("\x09\x04\0\0", 4));
    EXPECT_EQ(Captured({text(u"t"), rtf, html, kelp, Picture(3)}), u"3:k/3 2:{r} 5:<h>");
    EXPECT_EQ(Captured({text(u"t"), rtf, html, Picture(3)}), u"2:{r}/4 5:<h>");
    EXPECT_EQ(Captured({text(u"t"), html, Picture(3)}), u"1:t/4 5:<h>");
    EXPECT_EQ(Captured({ansi, Picture(3)}), u"1:ét/6");
    EXPECT_EQ(Captured({text(u" \r\n"), rtf, html, Picture(3)}), u"4:/4 2:{r} 5:<h>");
    EXPECT_EQ(Captured({text(u"t"), rtf, html}), u"2:{r}/4 5:<h>");
    EXPECT_EQ(Captured({text(u"t"), html}), u"1:t/4 5:<h>");
    EXPECT_EQ(Captured({ansi, locale}), u"1:ét/6");
    EXPECT_EQ(Captured({html}), u"nothing");
    EXPECT_EQ(Captured({}), u"nothing");
    // A bitmap that can't be copied leaves its place to the next.
    EXPECT_EQ(Captured({rtf, Picture(0)}), u"2:{r}/4");
    // A format without data leaves its place to the next.
    EXPECT_EQ(Captured({clipboard_.Named(kKelp, ""), clipboard_.Named(kRtf, "\0"), text(u"t")}),
              u"1:t/4");
    clipboard_.Unreadable = {rtf.Format};
    EXPECT_EQ(Captured({rtf, text(u"t")}), u"1:t/4");
}

TEST_F(Capture, TextEndsAtItsTerminatorOrWithTheBlock) {
    using namespace std::string_view_literals;
    const auto units = [this](std::string_view bytes) {
        return Captured({FakeClipboardAccess::Memory(kClipUnicodeText, bytes)});
    };
    EXPECT_EQ(units("a\0b\0\0\0z\0"sv), u"1:ab/6");
    EXPECT_EQ(units("a\0b\0"sv), u"1:ab/6");
    EXPECT_EQ(units("a\0b"sv), u"1:a/4");
    EXPECT_EQ(units("\0\0a\0"sv), u"nothing");
    EXPECT_EQ(units("a"sv), u"nothing");
}

TEST_F(Capture, WhatTheFilterRefusesIsPassedOver) {
    const auto html = clipboard_.Named(kHtml, "<h>");
    // In the order of the settings, HTML the last.
    const std::pair<ClipboardBlock, std::u16string> items[] = {
        {FakeClipboardAccess::Text(u"t"), u"1:t/4"},
        {clipboard_.Named(kRtf, "{r}"), u"2:{r}/4"},
        {Picture(3), u"4:/4"},
        {clipboard_.Named(kKelp, "k"), u"3:k/1"}};
    for (std::size_t off = 0; off < kept_.size(); ++off) {
        kept_ = {true, true, true, true, true};
        kept_[off] = false;
        for (std::size_t i = 0; i < std::size(items); ++i) {
            const auto& [block, text] = items[i];
            EXPECT_EQ(Captured({block, html}), i == off   ? u"nothing"
                                               : off == 4 ? text
                                                          : text + u" 5:<h>");
        }
    }
    const std::vector<ClipboardBlock> all = {items[0].first, items[1].first, items[2].first,
                                             items[3].first};
    const std::pair<KeptFormats, std::u16string> left[] = {
        {{true, true, true, false, true}, u"2:{r}/4"},
        {{true, false, true, false, true}, u"1:t/4 2:{r}"},
        {{true, false, false, false, true}, u"1:t/4 2:{r}"},
        {{false, false, true, false, true}, u"4:/4 2:{r}"},
        {{false, false, false, false, true}, u"nothing"}};
    for (const auto& [kept, text] : left) {
        kept_ = kept;
        EXPECT_EQ(Captured(all), text);
    }
}

TEST_F(Capture, WhatIsNotToBeSeenIsLeftAlone) {
    using namespace std::string_view_literals;
    const auto with = [this](std::u16string_view name, std::string_view bytes) {
        return Captured({FakeClipboardAccess::Text(u"secret"), clipboard_.Named(name, bytes)});
    };
    EXPECT_EQ(with(u"ExcludeClipboardContentFromMonitorProcessing", ""), u"nothing");
    EXPECT_EQ(with(u"Clipboard Viewer Ignore", "x"), u"nothing");
    EXPECT_EQ(with(u"CanIncludeInClipboardHistory", "\0\0\0\0"sv), u"nothing");
    EXPECT_EQ(with(u"CanIncludeInClipboardHistory", "\1\0\0\0"sv), u"1:secret/14");
    // What can't be read may say no.
    EXPECT_EQ(with(u"CanIncludeInClipboardHistory", ""), u"nothing");
    clipboard_.Unreadable = {clipboard_.RegisterFormat(u"CanIncludeInClipboardHistory")};
    EXPECT_EQ(with(u"CanIncludeInClipboardHistory", "\1\0\0\0"sv), u"nothing");
    clipboard_.Unreadable.clear();
    for (const std::u16string& line : log_.Lines) {
        EXPECT_EQ(line.find(u"secret"), line.npos) << Utf16ToUtf8(line);
    }
}

TEST_F(Capture, AnOwnerIsAskedBeforeEachReadWhetherItAnswers) {
    const std::vector<ClipboardBlock> blocks = {FakeClipboardAccess::Text(u"t"),
                                                clipboard_.Named(kHtml, "<h>")};
    for (int reads = 0; reads < 3; ++reads) {
        clipboard_.Copy(blocks);
        clipboard_.ReadsUntilOwnerHangs = reads;
        const CaptureResult result = capture_.Capture(0, 0);
        EXPECT_EQ(result.Outcome,
                  reads < 2 ? CaptureOutcome::OwnerHangs : CaptureOutcome::Captured);
        EXPECT_EQ(result.Item != nullptr, reads == 2);
    }
}

// Looks at the clipboard when it is told to, and again when its timer expires.
class Changes : public Capture {
  protected:
    // What came in meanwhile, a blank behind each.
    std::u16string Expire(std::uint32_t milliseconds) {
        while (pause_ && *pause_ <= milliseconds) {
            const std::uint32_t pause = *std::exchange(pause_, std::nullopt);
            clock_.Tick += pause;
            milliseconds -= pause;
            changes_.OnTimer();
        }
        clock_.Tick += milliseconds;
        return std::exchange(taken_, {});
    }
    std::u16string Told() {
        changes_.OnChange(1, HistoryChange::Captured);
        return std::exchange(taken_, {});
    }
    std::u16string ToldAndAfter(std::uint32_t milliseconds) {
        const std::u16string told = Told();
        return told + Expire(milliseconds);
    }
    void Copy(std::u16string_view text) {
        clipboard_.Copy({FakeClipboardAccess::Text(std::u16string(text))});
    }

    std::optional<std::uint32_t> pause_;
    std::u16string taken_;
    ChangeCapture changes_{
        {.Capture = capture_,
         .Access = clipboard_,
         .Clock = clock_,
         .OnItem = [this](std::unique_ptr<CCHItem> item,
                          HistoryChange) { taken_ += Concat(item->WideText(), u" "); },
         .StartTimer = [this](std::uint32_t pause) { pause_ = pause; },
         .Log = log_}};
};

TEST_F(Changes, EachContentIsTakenOnceHoweverOftenItIsTold) {
    Copy(u"a");
    EXPECT_EQ(Told(), u"a ");
    EXPECT_EQ(Told(), u"");
    changes_.CaptureNow(1);
    EXPECT_EQ(Told(), u"");
    Copy(u"a");
    EXPECT_EQ(Told(), u"a ");
    Copy(u"b");
    changes_.CaptureNow(1);
    EXPECT_EQ(taken_, u"b ");
    Copy(u"c");
    changes_.SkipContent();
    EXPECT_EQ(Told(), u"b ");
}

TEST_F(Changes, AClipboardInUseIsLookedAtAgainForASecond) {
    for (const std::uint32_t held : {300U, 990U}) {
        Copy(u"a");
        clipboard_.FailingOpens = FakeClipboardAccess::kAlways;
        EXPECT_EQ(ToldAndAfter(held), u"");
        clipboard_.FailingOpens = 0;
        EXPECT_EQ(Expire(50), u"a ");
    }
    Copy(u"a");
    clipboard_.FailingOpens = FakeClipboardAccess::kAlways;
    EXPECT_EQ(ToldAndAfter(1100), u"");
    EXPECT_FALSE(pause_);
    EXPECT_EQ(log_.Lines.back(), u"ERROR: Clipboard not captured: another program holds it");
    clipboard_.FailingOpens = 0;
    Copy(u"b");
    EXPECT_EQ(Told(), u"b ");
}

TEST_F(Changes, ACopyDuringTheProgramsOwnWorkIsTakenAfterIt) {
    Copy(u"before");
    myCopy_.Add();
    EXPECT_EQ(Told(), u"");
    Copy(u"theirs");
    EXPECT_EQ(Told(), u"");
    myCopy_.Subtract();
    EXPECT_EQ(Expire(100), u"theirs ");
    {
        const MyCopyScope scope(myCopy_, clipboard_);
        clipboard_.Open(0)->Empty();
        EXPECT_EQ(Told(), u"");
    }
    EXPECT_EQ(Expire(100), u"");
    EXPECT_EQ(Told(), u"");
}

TEST_F(Changes, ABusyOwnerIsAskedAgainAndWaitedForOnceAtMost) {
    Copy(u"a");
    clipboard_.ReadsUntilOwnerHangs = 0;
    EXPECT_EQ(ToldAndAfter(9000), u"");
    clipboard_.ReadsUntilOwnerHangs = FakeClipboardAccess::kNever;
    EXPECT_EQ(Expire(2000), u"a ");
    Copy(u"b");
    clipboard_.ReadsUntilOwnerHangs = 0;
    calls_.clear();
    EXPECT_EQ(ToldAndAfter(60'000), u"");
    EXPECT_FALSE(pause_);
    const auto longWaits = std::ranges::count(calls_, "ask 200");
    EXPECT_EQ(longWaits, 1);
    EXPECT_LT(std::ranges::count(calls_, "ask 20"), 20);
}

TEST_F(Capture, SourceComesFromTheHtmlBeforeTheText) {
    const auto html = [this](std::string_view header) {
        return clipboard_.Named(kHtml, std::string(header) + "<h>");
    };
    kept_[4] = false;
    const auto text = FakeClipboardAccess::Text(u"http://text/ more");
    EXPECT_EQ(Captured({text, html("StartHTML:99999\r\nSourceURL:http://html/\r\n")}),
              u"1:http://text/ more/36 @http://html/");
    EXPECT_EQ(Captured({text, html("SourceURL:http://html/")}),
              u"1:http://text/ more/36 @http://text/");
    EXPECT_EQ(Captured({clipboard_.Named(kRtf, "{r}"), text}), u"2:{r}/4");
    EXPECT_EQ(Captured({Picture(3), html("SourceURL: file:///d\n")}), u"4:/4 @ file:///d");
}

TEST(TextAsUrl, TakesAnAddressOrAPathFromTheStart) {
    ExpectTexts(
        {
            {u"\r\n\t http://a.b/c d", u"http://a.b/c"},
            {u"https://x\ty", u"https://x"},
            {u"HTTP://a.b/c", u""},
            {u"http://", u""},
            {u"C:\\My files\\a.txt\nmore", u"C:\\My files\\a.txt"},
            {u"see C:\\a\\b", u""},
            {u"a longer text", u""},
            {u"C:\\a", u""},
        },
        TextAsUrl);
}

TEST(OwnerInfo, ComesFromTheTopmostWindowThatTells) {
    FakeWindows windows;
    MemoryLog log;
    const auto icon = std::make_shared<int>(1);
    windows.Parents = {{3, 2}, {2, 1}};
    windows.Titles = {{3, u"edit"}, {2, u"frame"}};
    windows.Programs = {{3, u"c.exe"}, {1, u"a.exe"}};
    windows.FileIcon = icon;
    CCHItem item(CHF_UNICODE_TEXT, 3, TimeAt(0));
    ReadOwnerInfo(item, windows, log);
    EXPECT_EQ(item.wndName, u"frame");
    EXPECT_EQ(item.exeName, u"a.exe");
    EXPECT_EQ(item.icon, icon);
    windows.Parents[1] = 3;  // a circle ends
    CCHItem circle(CHF_UNICODE_TEXT, 3, TimeAt(0));
    ReadOwnerInfo(circle, windows, log);
    EXPECT_NE(circle.wndName, u"");
}

}  // namespace
}  // namespace vbr
