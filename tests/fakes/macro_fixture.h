// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/fake_clock.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/fake_system_info.h"
#include "fakes/memory_log.h"
#include "macros/macro_engine.h"
#include "macros/phrase_texts.h"
#include "macros/rich_macros.h"
#include "menu/phrase_item.h"
#include "settings/embedded_strings.h"

namespace vbr {

// The macros and what the menu makes of them, over stand-ins.
struct MacroFixture {
    FakeClock Clock;
    FakeLocale Forms;
    FakeSystemInfo System;
    FakeKeyboardLayouts Layouts;
    FakeRichTextEngine RichText;
    MemoryLog Log;
    EmbeddedStrings Texts;
    MacroValues Values{Clock, Forms, System};
    MacroEngine Engine{Values, Layouts, Forms, Log};
    RichMacros Rich{Engine, Layouts, Forms, RichText};
    PhraseTexts Previews{{Engine, RichText, Forms, Texts, Log}};
    PhraseItemMaker Items{Previews, Forms, Texts};
};

}  // namespace vbr
