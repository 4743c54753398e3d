#pragma once

namespace quorvale::text_id {

/// Numbers of the texts in the string tables: captions and tooltips from 100 on, messages from 500.

// Column headers of the results list.
inline constexpr int FileNameColumn = 100;
inline constexpr int LineNumberColumn = 101;
inline constexpr int SourceLineColumn = 102;

// Toolbar tooltips and the menu of the "Find" button.
inline constexpr int Find = 103;
inline constexpr int FindAll = 104;
inline constexpr int WildcardFindAll = 105;
inline constexpr int FindMenuSeparator = 106;
inline constexpr int RecentSearchList = 107;
inline constexpr int GoToLine = 108;
inline constexpr int CollapseLines = 109;
inline constexpr int Edit = 110;
inline constexpr int ShowBoundaries = 111;
inline constexpr int FindNext = 125;

// First contents of the search box, the line box and the scroll tip.
inline constexpr int InitialSearchText = 112;
inline constexpr int InitialLineText = 113;
inline constexpr int InitialScrollTip = 114;

// The corrections menu: the menu itself, then its items.
inline constexpr int CorrectionsMenu = 115;
inline constexpr int EditItem = 116;
inline constexpr int UndoItem = 117;
inline constexpr int UndoAllItem = 118;
inline constexpr int PreviousCorrectionItem = 119;
inline constexpr int NextCorrectionItem = 120;
inline constexpr int CommitItem = 121;

// The collapse menu: the menu itself, then its items.
inline constexpr int CollapseMenu = 122;
inline constexpr int CollapseAllItem = 123;
inline constexpr int ExpandAllItem = 124;

// Messages. "%1" in them is filled in by FormatMessage.
inline constexpr int SaveFailed = 500;
inline constexpr int LastUpdate = 501;
inline constexpr int FirstUpdate = 502;
inline constexpr int ConfirmUndoAll = 503;
inline constexpr int Return = 504;
inline constexpr int MatchesFound = 505;
inline constexpr int NoMatchFound = 506;
inline constexpr int ScrollTip = 507;

}  // namespace quorvale::text_id
