// The operating system's own values, under its own names in this library's spelling (DT_CENTER is
// kDtCenter), so that no header of the operating system is needed to use them.
#pragma once

#include <cstdint>

namespace levelwidgets {

// DrawTextA formats.
inline constexpr std::uint32_t kDtLeft = 0x00;
inline constexpr std::uint32_t kDtCenter = 0x01;
inline constexpr std::uint32_t kDtRight = 0x02;
inline constexpr std::uint32_t kDtVCenter = 0x04;
inline constexpr std::uint32_t kDtBottom = 0x08;
inline constexpr std::uint32_t kDtWordBreak = 0x10;
inline constexpr std::uint32_t kDtSingleLine = 0x20;
inline constexpr std::uint32_t kDtNoClip = 0x100;
inline constexpr std::uint32_t kDtCalcRect = 0x400;
inline constexpr std::uint32_t kDtNoPrefix = 0x800;

// Background modes.
inline constexpr int kTransparent = 1;
inline constexpr int kOpaque = 2;

// Pen styles.
inline constexpr int kPsSolid = 0;
inline constexpr int kPsDot = 2;
inline constexpr int kPsNull = 5;

// Stock objects.
inline constexpr int kWhiteBrush = 0;
inline constexpr int kBlackBrush = 4;
inline constexpr int kNullBrush = 5;
inline constexpr int kWhitePen = 6;
inline constexpr int kBlackPen = 7;
inline constexpr int kNullPen = 8;
inline constexpr int kSystemFont = 13;

// GetDeviceCaps indices.
inline constexpr int kHorzRes = 8;
inline constexpr int kVertRes = 10;
inline constexpr int kBitsPixel = 12;
inline constexpr int kLogPixelsX = 88;
inline constexpr int kLogPixelsY = 90;

// Raster operations of BitBlt.
inline constexpr std::uint32_t kSrcCopy = 0x00CC0020;

// Character sets and weights of fonts.
inline constexpr int kAnsiCharset = 0;
inline constexpr int kDefaultCharset = 1;
inline constexpr int kSymbolCharset = 2;
inline constexpr int kFontWeightNormal = 400;
inline constexpr int kFontWeightBold = 700;

// System colour indices; 0x80000000 plus an index is a colour of the container's convention.
inline constexpr int kColorWindow = 5;
inline constexpr int kColorWindowFrame = 6;
inline constexpr int kColorWindowText = 8;
inline constexpr int kColorHighlight = 13;
inline constexpr int kColorHighlightText = 14;
inline constexpr int kColorButtonFace = 15;
inline constexpr int kColorButtonShadow = 16;
inline constexpr int kColorGrayText = 17;
inline constexpr int kColorButtonText = 18;
inline constexpr int kColorInfoText = 23;
inline constexpr int kColorInfoBackground = 24;
// Colours 0 to 30 exist.
inline constexpr int kSystemColorCount = 31;

// Window styles.
inline constexpr std::uint32_t kWsPopup = 0x80000000u;
inline constexpr std::uint32_t kWsChild = 0x40000000u;
inline constexpr std::uint32_t kWsVisible = 0x10000000u;
inline constexpr std::uint32_t kWsMinimize = 0x20000000u;
inline constexpr std::uint32_t kWsDisabled = 0x08000000u;
inline constexpr std::uint32_t kWsMaximize = 0x01000000u;
inline constexpr std::uint32_t kWsClipSiblings = 0x04000000u;
inline constexpr std::uint32_t kWsClipChildren = 0x02000000u;
inline constexpr std::uint32_t kWsCaption = 0x00C00000u;
inline constexpr std::uint32_t kWsBorder = 0x00800000u;
inline constexpr std::uint32_t kWsSysMenu = 0x00080000u;
inline constexpr std::uint32_t kWsThickFrame = 0x00040000u;
inline constexpr std::uint32_t kWsMinimizeBox = 0x00020000u;
inline constexpr std::uint32_t kWsMaximizeBox = 0x00010000u;
inline constexpr std::uint32_t kWsExTopMost = 0x00000008u;
inline constexpr std::uint32_t kWsExTransparent = 0x00000020u;
inline constexpr std::uint32_t kWsExToolWindow = 0x00000080u;
inline constexpr std::uint32_t kWsExNoActivate = 0x08000000u;

// Indices of SetWindowLongA and GetWindowLongA.
inline constexpr int kGwlWndProc = -4;
inline constexpr int kGwlStyle = -16;
inline constexpr int kGwlExStyle = -20;
inline constexpr int kGwlUserData = -21;

// SetWindowPos: what to insert after (a window handle otherwise), and its flags.
inline constexpr std::uint32_t kHwndTop = 0;
inline constexpr std::uint32_t kHwndBottom = 1;
inline constexpr std::uint32_t kHwndTopMost = 0xFFFFFFFFu;
inline constexpr std::uint32_t kHwndNoTopMost = 0xFFFFFFFEu;
inline constexpr std::uint32_t kSwpNoSize = 0x0001;
inline constexpr std::uint32_t kSwpNoMove = 0x0002;
inline constexpr std::uint32_t kSwpNoZOrder = 0x0004;
inline constexpr std::uint32_t kSwpNoRedraw = 0x0008;
inline constexpr std::uint32_t kSwpNoActivate = 0x0010;
inline constexpr std::uint32_t kSwpFrameChanged = 0x0020;
inline constexpr std::uint32_t kSwpShowWindow = 0x0040;
inline constexpr std::uint32_t kSwpHideWindow = 0x0080;

// ShowWindow commands.
inline constexpr int kSwHide = 0;
inline constexpr int kSwShowNormal = 1;
inline constexpr int kSwShowMinimized = 2;
inline constexpr int kSwMaximize = 3;
inline constexpr int kSwShowNoActivate = 4;
inline constexpr int kSwShow = 5;
inline constexpr int kSwMinimize = 6;
inline constexpr int kSwRestore = 9;

// What kWmSize says of the window, in its first parameter.
inline constexpr std::uintptr_t kSizeRestored = 0;
inline constexpr std::uintptr_t kSizeMinimized = 1;
inline constexpr std::uintptr_t kSizeMaximized = 2;

// What kWmSysCommand asks for, in its first parameter; the lowest four bits are the system's own.
inline constexpr std::uintptr_t kScMinimize = 0xF020;
inline constexpr std::uintptr_t kScMaximize = 0xF030;
inline constexpr std::uintptr_t kScClose = 0xF060;
inline constexpr std::uintptr_t kScRestore = 0xF120;

// Shapes of the pointer.
inline constexpr int kIdcArrow = 32512;
inline constexpr int kIdcIBeam = 32513;
inline constexpr int kIdcWait = 32514;
inline constexpr int kIdcCross = 32515;
inline constexpr int kIdcSizeNwSe = 32642;
inline constexpr int kIdcSizeNeSw = 32643;
inline constexpr int kIdcSizeWe = 32644;
inline constexpr int kIdcSizeNs = 32645;
inline constexpr int kIdcNo = 32648;
inline constexpr int kIdcHand = 32649;

// Window messages.
inline constexpr std::uint32_t kWmCreate = 0x0001;
inline constexpr std::uint32_t kWmDestroy = 0x0002;
inline constexpr std::uint32_t kWmMove = 0x0003;
inline constexpr std::uint32_t kWmSize = 0x0005;
inline constexpr std::uint32_t kWmActivate = 0x0006;
inline constexpr std::uint32_t kWmSetFocus = 0x0007;
inline constexpr std::uint32_t kWmKillFocus = 0x0008;
inline constexpr std::uint32_t kWmEnable = 0x000A;
inline constexpr std::uint32_t kWmSetText = 0x000C;
inline constexpr std::uint32_t kWmGetText = 0x000D;
inline constexpr std::uint32_t kWmGetTextLength = 0x000E;
inline constexpr std::uint32_t kWmPaint = 0x000F;
inline constexpr std::uint32_t kWmClose = 0x0010;
inline constexpr std::uint32_t kWmEraseBackground = 0x0014;
inline constexpr std::uint32_t kWmShowWindow = 0x0018;
inline constexpr std::uint32_t kWmCancelMode = 0x001F;
inline constexpr std::uint32_t kWmSetCursor = 0x0020;
inline constexpr std::uint32_t kWmMouseActivate = 0x0021;
inline constexpr std::uint32_t kWmSetFont = 0x0030;
inline constexpr std::uint32_t kWmGetFont = 0x0031;
inline constexpr std::uint32_t kWmGetDlgCode = 0x0087;
inline constexpr std::uint32_t kWmKeyDown = 0x0100;
inline constexpr std::uint32_t kWmKeyUp = 0x0101;
inline constexpr std::uint32_t kWmChar = 0x0102;
inline constexpr std::uint32_t kWmSysKeyDown = 0x0104;
inline constexpr std::uint32_t kWmSysKeyUp = 0x0105;
inline constexpr std::uint32_t kWmSysChar = 0x0106;
inline constexpr std::uint32_t kWmCommand = 0x0111;
inline constexpr std::uint32_t kWmSysCommand = 0x0112;
inline constexpr std::uint32_t kWmCtlColorEdit = 0x0133;
inline constexpr std::uint32_t kWmCtlColorStatic = 0x0138;
inline constexpr std::uint32_t kWmMouseMove = 0x0200;
inline constexpr std::uint32_t kWmLButtonDown = 0x0201;
inline constexpr std::uint32_t kWmLButtonUp = 0x0202;
inline constexpr std::uint32_t kWmLButtonDblClk = 0x0203;
inline constexpr std::uint32_t kWmRButtonDown = 0x0204;
inline constexpr std::uint32_t kWmRButtonUp = 0x0205;
inline constexpr std::uint32_t kWmRButtonDblClk = 0x0206;
inline constexpr std::uint32_t kWmMButtonDown = 0x0207;
inline constexpr std::uint32_t kWmMButtonUp = 0x0208;
inline constexpr std::uint32_t kWmMButtonDblClk = 0x0209;
inline constexpr std::uint32_t kWmMouseWheel = 0x020A;
inline constexpr std::uint32_t kWmCaptureChanged = 0x0215;
inline constexpr std::uint32_t kWmCut = 0x0300;
inline constexpr std::uint32_t kWmCopy = 0x0301;
inline constexpr std::uint32_t kWmPaste = 0x0302;
inline constexpr std::uint32_t kWmClear = 0x0303;
inline constexpr std::uint32_t kWmUndo = 0x0304;
// Asks a window to draw its client area in the context of the first parameter.
inline constexpr std::uint32_t kWmPrintClient = 0x0318;

// Styles of edit boxes (window class "EDIT").
inline constexpr std::uint32_t kEsLeft = 0x0000;
inline constexpr std::uint32_t kEsCenter = 0x0001;
inline constexpr std::uint32_t kEsRight = 0x0002;
inline constexpr std::uint32_t kEsMultiLine = 0x0004;
inline constexpr std::uint32_t kEsUpperCase = 0x0008;
inline constexpr std::uint32_t kEsLowerCase = 0x0010;
inline constexpr std::uint32_t kEsPassword = 0x0020;
inline constexpr std::uint32_t kEsAutoVScroll = 0x0040;
inline constexpr std::uint32_t kEsAutoHScroll = 0x0080;
inline constexpr std::uint32_t kEsNoHideSel = 0x0100;
inline constexpr std::uint32_t kEsReadOnly = 0x0800;
inline constexpr std::uint32_t kEsWantReturn = 0x1000;
inline constexpr std::uint32_t kEsNumber = 0x2000;

// Messages to edit boxes. Texts are bytes of the system's code page, ended by 0; a rectangle is a
// PixelRect, by address.
inline constexpr std::uint32_t kEmGetSel = 0x00B0;
inline constexpr std::uint32_t kEmSetSel = 0x00B1;
inline constexpr std::uint32_t kEmGetRect = 0x00B2;
inline constexpr std::uint32_t kEmSetRect = 0x00B3;
inline constexpr std::uint32_t kEmSetRectNP = 0x00B4;
inline constexpr std::uint32_t kEmScroll = 0x00B5;
inline constexpr std::uint32_t kEmLineScroll = 0x00B6;
inline constexpr std::uint32_t kEmScrollCaret = 0x00B7;
inline constexpr std::uint32_t kEmGetModify = 0x00B8;
inline constexpr std::uint32_t kEmSetModify = 0x00B9;
inline constexpr std::uint32_t kEmGetLineCount = 0x00BA;
inline constexpr std::uint32_t kEmLineIndex = 0x00BB;
inline constexpr std::uint32_t kEmLineLength = 0x00C1;
inline constexpr std::uint32_t kEmReplaceSel = 0x00C2;
inline constexpr std::uint32_t kEmGetLine = 0x00C4;
inline constexpr std::uint32_t kEmSetLimitText = 0x00C5;
inline constexpr std::uint32_t kEmCanUndo = 0x00C6;
inline constexpr std::uint32_t kEmUndo = 0x00C7;
inline constexpr std::uint32_t kEmLineFromChar = 0x00C9;
inline constexpr std::uint32_t kEmSetPasswordChar = 0x00CC;
inline constexpr std::uint32_t kEmEmptyUndoBuffer = 0x00CD;
inline constexpr std::uint32_t kEmGetFirstVisibleLine = 0x00CE;
inline constexpr std::uint32_t kEmSetReadOnly = 0x00CF;
inline constexpr std::uint32_t kEmGetPasswordChar = 0x00D2;
inline constexpr std::uint32_t kEmSetMargins = 0x00D3;
inline constexpr std::uint32_t kEmGetMargins = 0x00D4;
inline constexpr std::uint32_t kEmGetLimitText = 0x00D5;
inline constexpr std::uint32_t kEmPosFromChar = 0x00D6;
inline constexpr std::uint32_t kEmCharFromPos = 0x00D7;

// Actions of kEmScroll, and which margins kEmSetMargins sets.
inline constexpr std::uintptr_t kSbLineUp = 0;
inline constexpr std::uintptr_t kSbLineDown = 1;
inline constexpr std::uintptr_t kSbPageUp = 2;
inline constexpr std::uintptr_t kSbPageDown = 3;
inline constexpr std::uintptr_t kEcLeftMargin = 1;
inline constexpr std::uintptr_t kEcRightMargin = 2;
inline constexpr std::uintptr_t kEcUseFontInfo = 0xFFFF;

// What edit boxes report to their parent, in the high word of kWmCommand's first parameter.
inline constexpr std::uint32_t kEnSetFocus = 0x0100;
inline constexpr std::uint32_t kEnKillFocus = 0x0200;
inline constexpr std::uint32_t kEnChange = 0x0300;
inline constexpr std::uint32_t kEnUpdate = 0x0400;
inline constexpr std::uint32_t kEnMaxText = 0x0501;
inline constexpr std::uint32_t kEnHScroll = 0x0601;
inline constexpr std::uint32_t kEnVScroll = 0x0602;

// Button and key bits in the first parameter of a pointer message.
inline constexpr std::uintptr_t kMkLButton = 0x0001;
inline constexpr std::uintptr_t kMkRButton = 0x0002;
inline constexpr std::uintptr_t kMkShift = 0x0004;
inline constexpr std::uintptr_t kMkControl = 0x0008;
inline constexpr std::uintptr_t kMkMButton = 0x0010;

// Button and Shift bits as the controls' events carry them.
inline constexpr std::int16_t kLeftButton = 1;
inline constexpr std::int16_t kRightButton = 2;
inline constexpr std::int16_t kMiddleButton = 4;
inline constexpr std::int16_t kShiftMask = 1;
inline constexpr std::int16_t kCtrlMask = 2;
inline constexpr std::int16_t kAltMask = 4;

// Key codes.
inline constexpr std::int16_t kKeyLeftButton = 1;  // the pointer's, to ask for its state
inline constexpr std::int16_t kKeyBackspace = 8;
inline constexpr std::int16_t kKeyTab = 9;
inline constexpr std::int16_t kKeyEnter = 13;
inline constexpr std::int16_t kKeyShift = 16;
inline constexpr std::int16_t kKeyControl = 17;
inline constexpr std::int16_t kKeyAlt = 18;
inline constexpr std::int16_t kKeyEscape = 27;
inline constexpr std::int16_t kKeySpace = 32;
inline constexpr std::int16_t kKeyPageUp = 33;
inline constexpr std::int16_t kKeyPageDown = 34;
inline constexpr std::int16_t kKeyEnd = 35;
inline constexpr std::int16_t kKeyHome = 36;
inline constexpr std::int16_t kKeyLeft = 37;
inline constexpr std::int16_t kKeyUp = 38;
inline constexpr std::int16_t kKeyRight = 39;
inline constexpr std::int16_t kKeyDown = 40;
inline constexpr std::int16_t kKeyInsert = 45;
inline constexpr std::int16_t kKeyDelete = 46;
inline constexpr std::int16_t kKeyC = 67;
inline constexpr std::int16_t kKeyF2 = 113;
inline constexpr std::int16_t kKeyF4 = 115;

// Answers to kWmMouseActivate: whether the press activates the window, and whether it is lost.
inline constexpr std::intptr_t kMaActivate = 1;
inline constexpr std::intptr_t kMaActivateAndEat = 2;
inline constexpr std::intptr_t kMaNoActivate = 3;
inline constexpr std::intptr_t kMaNoActivateAndEat = 4;

}  // namespace levelwidgets
