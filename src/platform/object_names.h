// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

// The named kernel objects and window messages by which processes of the system reach each other.
// Other programs know these names and numbers: they never change.
namespace vbr {

// Events.
inline constexpr std::u16string_view kEventInstance = u"9DDB575E-846B-4600-880F-98319D699611";
inline constexpr std::u16string_view kEventAutoLoadWait = u"9DDB575E-846B-4600-880F-98319D699612";
inline constexpr std::u16string_view kEventEdit = u"BD9F528F-8997-48c7-897C-F437765F93D2";
inline constexpr std::u16string_view kEventShowMenu = u"{84F81BCD-0FC6-4782-B39F-C638F539FA14}";
inline constexpr std::u16string_view kEventAlreadyWork = u"Local\\Vellumbridge_AlreadyWork";
inline constexpr std::u16string_view kEventExit = u"Local\\Vellumbridge_Exit";
inline constexpr std::u16string_view kEventTakeOver = u"55517695-4FD6-40eb-9E52-997024E979DE";
inline constexpr std::u16string_view kEventEditorEnded =
    u"Local\\Vellumbridge_Event_PhraseEditorAgentCoop_Ended";
inline constexpr std::u16string_view kEventOptionsChanged = u"Local\\Vellumbridge_OptionsChanged";
inline constexpr std::u16string_view kEventLangUiChanged = u"Local\\Vellumbridge_LangUI_Changed";
inline constexpr std::u16string_view kEventCheckForUpdates = u"Local\\Vellumbridge_CheckForUpdates";
inline constexpr std::u16string_view kEventCommandCheckForUpdates =
    u"Local\\Vellumbridge_CommandCheckForUpdates";
inline constexpr std::u16string_view kEventFloatPaneBlink = u"Local\\Vellumbridge_FloatPaneBlink";
inline constexpr std::u16string_view kEventDataNeeded = u"Local\\Vellumbridge_DataNeeded";
inline constexpr std::u16string_view kEventDataCompleted = u"Local\\Vellumbridge_DataCompleted";
inline constexpr std::u16string_view kEventStartCopy = u"Local\\Vellumbridge_StartCopy";
inline constexpr std::u16string_view kEventEndCopy = u"Local\\Vellumbridge_EndCopy";
inline constexpr std::u16string_view kEventSaveLoadHistory = u"Local\\Vellumbridge_SaveLoad_CH";
inline constexpr std::u16string_view kEventLogGuard = u"Local\\VellumbridgeLogger_SyncEven";

// Shared memory, with its size in bytes.
inline constexpr std::u16string_view kAreaSettings = u"Local\\$VELLUMBRIDGE_SETTING_AREA$";
inline constexpr std::uint32_t kAreaSettingsSize = 1024;
// The selection that is too long for the area above, UTF-8; as large as the text.
inline constexpr std::u16string_view kAreaSelection = u"Local\\$VELLUMBRIDGE_SELECTION_AREA$";
inline constexpr std::u16string_view kAreaInterchange = u"Local\\$VELLUMBRIDGE_INTERCHANGE_AREA$";
inline constexpr std::uint32_t kAreaInterchangeSize = 2'252'800;

// Registered window messages.
inline constexpr std::u16string_view kMessageTaskbarCreated = u"TaskbarCreated";
inline constexpr std::u16string_view kMessageInstanceSignal =
    u"VBR_7B11E8E0-A712-4caa-A06B-01BEA4F7DFC4";
// A string for the message list.
inline constexpr std::u16string_view kMessageAddMessage = u"{C4629BDD-5FE3-47de-863B-E8D10BB7E2EB}";
inline constexpr std::u16string_view kMessageMouseEvent = u"{CD8F8D19-9440-4b61-ADD7-980B478E41F6}";
// Of the clipboard spy's window to itself.
inline constexpr std::u16string_view kMessageClipboardNotice =
    u"{CC278AD4-3207-4aeb-B6BC-0342A5E6815D}";
// Of the clipboard handler: the history was loaded, an item was saved, add an item, and an item's
// place on the disk.
inline constexpr std::u16string_view kMessageHistoryLoaded =
    u"{278BB95C-BECC-4945-9CDF-98E5CDC69FEF}";
inline constexpr std::u16string_view kMessageItemSaved = u"{F762C94C-9D69-4a96-B8FD-7F53F4157D13}";
inline constexpr std::u16string_view kMessageAddItem = u"{540F133E-3D6B-49e4-87A5-C19CA88FC341}";
inline constexpr std::u16string_view kMessageItemStored = u"{30462FA5-8E5D-4702-A0CD-6C06742AD9BC}";
// Of a second start of the editor to the first: what it was started for, as bits.
inline constexpr std::u16string_view kMessageEditorRequest =
    u"{7D0C2B1E-61A7-4E0C-9B0B-2E2D6C3C9C55}";
// Of a menu's tip to the window that may know more of an item.
inline constexpr std::u16string_view kMessageMenuTip = u"9176C785-52C0-432a-AB51-C8439932297C";
// The closing brace is missing in the name itself.
inline constexpr std::u16string_view kMessageQuery = u"{FC970502-EECA-4c50-AF80-CF39EA345E99";

}  // namespace vbr
