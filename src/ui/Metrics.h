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

// window
inline constexpr int windowMinimumWidth = 1180;
inline constexpr int windowMinimumHeight = 720;
inline constexpr int windowWidth = 1440;
inline constexpr int windowHeight = 880;
inline constexpr int sidebarMinimum = 220;
inline constexpr int sidebarIdeal = 240;
inline constexpr int sidebarMaximum = 300;
inline constexpr int contentMinimum = 560;
inline constexpr int detailMinimum = 300;
inline constexpr int detailIdeal = 360;
inline constexpr int detailMaximum = 460;

// bar
inline constexpr int barHeight = 52;
inline constexpr int barTitleGap = 10; // and the space of a menu's title
inline constexpr int searchHeight = 30;
inline constexpr int searchWidth = 248;
inline constexpr int searchMinimum = 200;
inline constexpr int searchSymbol = 13;
inline constexpr int searchPadding = 9; // from the field's edges to its symbols
inline constexpr int searchGap = 7;     // between symbol and text

// buttons
inline constexpr int buttonHeight = 28;
inline constexpr int smallButtonHeight = 24;
inline constexpr int largeButtonHeight = 32;
inline constexpr int toolButtonHeight = 30;
inline constexpr int toolButtonPadding = 9;
inline constexpr int smallSymbol = 14;
inline constexpr int chevron = 10;
inline constexpr int buttonRadius = 6;
inline constexpr int smallButtonRadius = 5;
inline constexpr int largeButtonRadius = 7;
inline constexpr int fieldRadius = 7;
inline constexpr int linkRadius = 4; // of the ring around a link

// menus and help tags
inline constexpr int menuRadius = 8;
inline constexpr int menuPadding = 5;
inline constexpr int menuEntryRadius = 5;
inline constexpr int helpTagWidth = 342; // of the longest line

// scroll bars, progress
inline constexpr int scrollBarExtent = 12;
inline constexpr int scrollThumbWidth = 6;
inline constexpr int scrollThumbGap = 3;
inline constexpr int scrollThumbLength = 28; // at least
inline constexpr int progressHeight = 6;

// segmented control
inline constexpr int segmentHeight = 24;
inline constexpr int segmentRadius = 5;
inline constexpr int segmentTrackRadius = 7;

// sidebar
inline constexpr int headerCardRadius = 12;
inline constexpr int applicationIcon = 34;
inline constexpr int statusRowHeight = 26;
inline constexpr int kindRowHeight = 24;
inline constexpr int sidebarSymbolBox = 18;
inline constexpr int statusDot = 10;
inline constexpr int sidebarRowRadius = 6;
inline constexpr int disclosureChevron = 9;
inline constexpr int sectionGap = 14;

// summary header
inline constexpr int tileRadius = 10;
inline constexpr int activeTileBorder = 2;
inline constexpr int tileCountGap = 5; // between symbol and count
inline constexpr int readinessHeight = 20;
inline constexpr int readinessOverhang = 6; // of its fill, to the left and right of all else
inline constexpr int readinessActionGap = 5;

// detail column
inline constexpr int detailSymbol = 32;
inline constexpr int detailSymbolBox = 44;
inline constexpr int verdictSymbol = 18;
inline constexpr int verdictBoxRadius = 10;
inline constexpr int factLabelWidth = 130;
inline constexpr int boxRadius = 8; // of the component and command boxes, and of catalogue rows
inline constexpr int componentGap = 3;
inline constexpr int actionHeight = 30; // of a button over the full width

// sheets
inline constexpr int sheetRadius = 14;
inline constexpr int sheetRise = 8; // while it fades in
inline constexpr int sheetShadowDrop = 18;
inline constexpr int sheetShadowBlur = 50;
inline constexpr int sheetContactShadowDrop = 2; // the narrow one along its edge
inline constexpr int sheetContactShadowBlur = 8;
inline constexpr int sheetShadowMargin = 90; // beyond it nothing of both can be seen
inline constexpr int bannerSymbol = 18;
inline constexpr int guideWidth = 480;
inline constexpr int sheetTitleSymbol = 20;
inline constexpr int stepCircle = 26;
inline constexpr int welcomeWidth = 520;
inline constexpr int welcomeHeight = 700;
inline constexpr int welcomeIcon = 84;
inline constexpr int featureSymbolBox = 22;
inline constexpr int largeCardRadius = 16; // of the maker's, the about and the legal cards
inline constexpr int logoHeight = 52;
inline constexpr int catalogueIcon = 32;
inline constexpr int catalogueIconRadius = 7;
inline constexpr int catalogueTextGap = 1;
inline constexpr int placeholderSymbol = 13;
inline constexpr int linkArrow = 11;

// settings
inline constexpr int settingsWidth = 480;
inline constexpr int settingsHeight = 440;
inline constexpr int settingsMargin = 20;
inline constexpr int settingsGroupRadius = 10;
inline constexpr int settingsRowHeight = 44; // at least
inline constexpr int restartSymbol = 17;
inline constexpr int tabStripHeight = 64;
inline constexpr int tabWidth = 76;
inline constexpr int tabSymbol = 20;
inline constexpr int tabSymbolGap = 3; // to the label below
inline constexpr int tabRadius = 8;
inline constexpr int aboutIcon = 72;
inline constexpr int appsSymbol = 20;
inline constexpr int aboutArrow = 13;
inline constexpr int legalSymbol = 15;
inline constexpr int legalSymbolBox = 18;
inline constexpr int legalRowHeight = 26;
inline constexpr int linkRowOverhang = 6; // of its fill, to the left and right of all else
inline constexpr int popUpPadding = 10;   // left of the text
inline constexpr int popUpChevron = 12;

// symbols
inline constexpr int symbol = 16;
inline constexpr int emptyStateSymbol = 40;

// table
inline constexpr int tableHeaderHeight = 28;
inline constexpr int tableRowHeight = 40;
inline constexpr int tableRowInset = 4; // of a row's background, left and right
inline constexpr int tableRowRadius = 7;
inline constexpr int tableLineInset = 12; // of the line below a row, left and right
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
