// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "exchange/query.h"
#include "exchange/selected_text.h"
#include "platform/desktop_windows.h"
#include "platform/log.h"

namespace vbr {

enum class QueryStart {
    Posted = 0,
    Failed = 1,
    Local = 2,  // the query was filled here
};

// How a query reaches the target.
class QueryRoute {
  public:
    virtual ~QueryRoute() = default;

    // Starts a query about the window. `wParam` tells its cause to the hook library.
    virtual QueryStart Start(WindowHandle target, std::uintptr_t wParam, WPQuery& query) = 0;
};

enum class RouteKind { Local, Posted };

// The route of the system, unless one is forced.
RouteKind ChooseRoute(bool is64BitWindows, std::optional<RouteKind> forced);

// "local" or "posted"; nothing for any other word.
std::optional<RouteKind> ParseRoute(std::u16string_view word);

// The route in the words of the environment report.
std::u16string_view DescribeRoute(RouteKind route);

// Fills the query here, by making the target copy its selection.
class LocalRoute : public QueryRoute {
  public:
    LocalRoute(DesktopWindows& windows, SelectedTextReader& selection)
        : windows_(windows), selection_(selection) {}

    QueryStart Start(WindowHandle target, std::uintptr_t wParam, WPQuery& query) override;

  private:
    DesktopWindows& windows_;
    SelectedTextReader& selection_;
};

// Posts the registered message; the hook library in the target answers through the interchange
// area. A target that the library can't enter is asked from here.
class PostedRoute : public QueryRoute {
  public:
    PostedRoute(DesktopWindows& windows, SelectedTextReader& selection, std::uint32_t queryMessage,
                Log& log)
        : windows_(windows), local_(windows, selection), queryMessage_(queryMessage), log_(log) {}

    QueryStart Start(WindowHandle target, std::uintptr_t wParam, WPQuery& query) override;

  private:
    bool CanEnter(std::uint32_t process);

    DesktopWindows& windows_;
    LocalRoute local_;
    std::uint32_t lastProcess_ = 0;
    bool canEnterLast_ = true;
    std::uint32_t queryMessage_;
    Log& log_;
};

}  // namespace vbr
