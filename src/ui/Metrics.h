#pragma once

/// Measures of the windows in logical pixels.
namespace veridane::ui::metrics {

// spacing that has no name of its own
inline constexpr int space2 = 2;
inline constexpr int space4 = 4;
inline constexpr int space6 = 6;
inline constexpr int space8 = 8;
inline constexpr int space10 = 10;
inline constexpr int space12 = 12;
inline constexpr int space16 = 16;
inline constexpr int space18 = 18;
inline constexpr int space24 = 24;

inline constexpr int hairline = 1;
inline constexpr int focusRingWidth = 2;
inline constexpr int focusRingGap = 2; // outside the control

// symbols
inline constexpr int symbol = 16;
inline constexpr int emptyStateSymbol = 40;

// table
inline constexpr int tableHeaderHeight = 28;
inline constexpr int tableRowHeight = 40;
inline constexpr int tableRowInset = 4; // of a row's background, left and right
inline constexpr int tableRowRadius = 7;
inline constexpr int cellPaddingLeft = 8;
inline constexpr int cellPaddingRight = 4;
inline constexpr int cellGap = 6;
inline constexpr int cellLineHeight = 16; // of a verdict in two lines
inline constexpr int updateSymbol = 12;
inline constexpr int headerTick = 12;      // between two column titles
inline constexpr int scrollThumbRoom = 12; // kept free of text on the right

// empty states
inline constexpr int emptyStateTitleGap = 14;
inline constexpr int emptyStateTextGap = 6;
inline constexpr int emptyStateButtonGap = 18;
inline constexpr int emptyStateTextWidth = 340;
inline constexpr int emptyStateLift = 20; // above the middle

} // namespace veridane::ui::metrics
