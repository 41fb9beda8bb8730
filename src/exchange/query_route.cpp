// SPDX-License-Identifier: MIT
#include "exchange/query_route.h"

#include "base/text.h"

namespace vbr {

RouteKind ChooseRoute(bool is64BitWindows, std::optional<RouteKind> forced) {
    return forced.value_or(is64BitWindows ? RouteKind::Local : RouteKind::Posted);
}

std::optional<RouteKind> ParseRoute(std::u16string_view word) {
    if (EqualsNoCase(word, u"local")) {
        return RouteKind::Local;
    }
    if (EqualsNoCase(word, u"posted")) {
        return RouteKind::Posted;
    }
    return std::nullopt;
}

std::u16string_view DescribeRoute(RouteKind route) {
    return route == RouteKind::Posted ? u"Use x32 implementation XP like"
                                      : u"Use x64 implementation Win7 like";
}

QueryStart LocalRoute::Start(WindowHandle target, std::uintptr_t, WPQuery& query) {
    query.TargetWindow = target;
    Selection selection = selection_.ExtractSelectedText(target);
    query.StateSelText = selection.State;
    query.SelText = std::move(selection.Text);
    const WindowThread thread = windows_.ThreadOf(target);
    query.AppPath = windows_.ProgramPath(thread.Process);
    query.Hkl = windows_.KeyboardLayout(thread.Thread);
    query.WindowClassName = windows_.ClassName(target);
    return QueryStart::Local;
}

// People stay in one program for many queries.
bool PostedRoute::CanEnter(std::uint32_t process) {
    if (process != lastProcess_) {
        canEnterLast_ = windows_.HasOwnBitness(process);
        lastProcess_ = process;
    }
    return canEnterLast_;
}

QueryStart PostedRoute::Start(WindowHandle target, std::uintptr_t wParam, WPQuery& query) {
    if (!CanEnter(windows_.ThreadOf(target).Process)) {
        log_.Write(u"The hook library cannot enter a program of that bitness");
        return local_.Start(target, wParam, query);
    }
    const bool posted = windows_.Post(target, queryMessage_, wParam);
    log_.Write(Concat(u"Sending message by PostMessage bRet=", int{posted}));
    query.TargetWindow = target;
    return posted ? QueryStart::Posted : QueryStart::Failed;
}

}  // namespace vbr
