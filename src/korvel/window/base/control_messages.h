#pragma once

#include "korvel/window/base/messages.h"

/// The numbers of the messages, notices and styles of the controls beside text fields, buttons and lists.
namespace korvel {

// Combo box.
inline constexpr UINT CBS_SIMPLE = 0x0001;
inline constexpr UINT CBS_DROPDOWN = 0x0002;
inline constexpr UINT CBS_DROPDOWNLIST = 0x0003;
inline constexpr UINT CBS_TYPEMASK = 0x0003;
inline constexpr UINT CBS_AUTOHSCROLL = 0x0040;
inline constexpr UINT CBS_SORT = 0x0100;
inline constexpr UINT CBS_HASSTRINGS = 0x0200;
inline constexpr int CB_ERR = -1;
inline constexpr UINT CB_GETEDITSEL = 0x0140;
inline constexpr UINT CB_LIMITTEXT = 0x0141;
inline constexpr UINT CB_SETEDITSEL = 0x0142;
inline constexpr UINT CB_ADDSTRING = 0x0143;
inline constexpr UINT CB_DELETESTRING = 0x0144;
inline constexpr UINT CB_GETCOUNT = 0x0146;
inline constexpr UINT CB_GETCURSEL = 0x0147;
inline constexpr UINT CB_GETLBTEXT = 0x0148;
inline constexpr UINT CB_GETLBTEXTLEN = 0x0149;
inline constexpr UINT CB_INSERTSTRING = 0x014A;
inline constexpr UINT CB_RESETCONTENT = 0x014B;
inline constexpr UINT CB_FINDSTRING = 0x014C;
inline constexpr UINT CB_SELECTSTRING = 0x014D;
inline constexpr UINT CB_SETCURSEL = 0x014E;
inline constexpr UINT CB_SHOWDROPDOWN = 0x014F;
inline constexpr UINT CB_GETITEMDATA = 0x0150;
inline constexpr UINT CB_SETITEMDATA = 0x0151;
inline constexpr UINT CB_GETDROPPEDSTATE = 0x0157;
inline constexpr UINT CB_FINDSTRINGEXACT = 0x0158;
inline constexpr UINT CBN_SELCHANGE = 1;
inline constexpr UINT CBN_SETFOCUS = 3;
inline constexpr UINT CBN_KILLFOCUS = 4;
inline constexpr UINT CBN_EDITCHANGE = 5;
inline constexpr UINT CBN_EDITUPDATE = 6;
inline constexpr UINT CBN_DROPDOWN = 7;
inline constexpr UINT CBN_CLOSEUP = 8;
inline constexpr UINT CBN_SELENDOK = 9;
inline constexpr UINT CBN_SELENDCANCEL = 10;

// Progress bar.
inline constexpr UINT PBS_SMOOTH = 0x0001;
inline constexpr UINT PBS_VERTICAL = 0x0004;
inline constexpr UINT PBS_MARQUEE = 0x0008;
inline constexpr UINT PBM_SETRANGE = WM_USER + 1; // two 16-bit numbers in lParam
inline constexpr UINT PBM_SETPOS = WM_USER + 2;
inline constexpr UINT PBM_DELTAPOS = WM_USER + 3;
inline constexpr UINT PBM_SETSTEP = WM_USER + 4;
inline constexpr UINT PBM_STEPIT = WM_USER + 5;
inline constexpr UINT PBM_SETRANGE32 = WM_USER + 6;
inline constexpr UINT PBM_GETRANGE = WM_USER + 7; // wParam not 0: the lower number
inline constexpr UINT PBM_GETPOS = WM_USER + 8;
inline constexpr UINT PBM_SETMARQUEE = WM_USER + 10;

// Slider; it tells its parent by WM_HSCROLL or WM_VSCROLL.
inline constexpr UINT TBS_AUTOTICKS = 0x0001;
inline constexpr UINT TBS_VERT = 0x0002;
inline constexpr UINT TBS_TOP = 0x0004;
inline constexpr UINT TBS_BOTH = 0x0008;
inline constexpr UINT TBS_NOTICKS = 0x0010;
inline constexpr UINT TBM_GETPOS = WM_USER;
inline constexpr UINT TBM_GETRANGEMIN = WM_USER + 1;
inline constexpr UINT TBM_GETRANGEMAX = WM_USER + 2;
inline constexpr UINT TBM_SETPOS = WM_USER + 5;
inline constexpr UINT TBM_SETRANGE = WM_USER + 6; // two 16-bit numbers in lParam
inline constexpr UINT TBM_SETRANGEMIN = WM_USER + 7;
inline constexpr UINT TBM_SETRANGEMAX = WM_USER + 8;
inline constexpr UINT TBM_SETTICFREQ = WM_USER + 20;
inline constexpr UINT TBM_SETPAGESIZE = WM_USER + 21;
inline constexpr UINT TBM_GETPAGESIZE = WM_USER + 22;
inline constexpr UINT TBM_SETLINESIZE = WM_USER + 23;
inline constexpr UINT TBM_GETLINESIZE = WM_USER + 24;
inline constexpr UINT TB_LINEUP = 0;
inline constexpr UINT TB_LINEDOWN = 1;
inline constexpr UINT TB_PAGEUP = 2;
inline constexpr UINT TB_PAGEDOWN = 3;
inline constexpr UINT TB_THUMBPOSITION = 4;
inline constexpr UINT TB_THUMBTRACK = 5;
inline constexpr UINT TB_TOP = 6;
inline constexpr UINT TB_BOTTOM = 7;
inline constexpr UINT TB_ENDTRACK = 8;

// Up-down: two arrows beside a field, its buddy.
inline constexpr UINT UDS_WRAP = 0x0001;
inline constexpr UINT UDS_SETBUDDYINT = 0x0002;
inline constexpr UINT UDS_ALIGNRIGHT = 0x0004;
inline constexpr UINT UDS_ALIGNLEFT = 0x0008;
inline constexpr UINT UDS_AUTOBUDDY = 0x0010;
inline constexpr UINT UDS_ARROWKEYS = 0x0020;
inline constexpr UINT UDS_HORZ = 0x0040;
inline constexpr UINT UDS_NOTHOUSANDS = 0x0080;
inline constexpr UINT UDM_SETRANGE = WM_USER + 101; // the upper number in the low word of lParam
inline constexpr UINT UDM_GETRANGE = WM_USER + 102;
inline constexpr UINT UDM_SETPOS = WM_USER + 103;
inline constexpr UINT UDM_GETPOS = WM_USER + 104;
inline constexpr UINT UDM_SETBUDDY = WM_USER + 105;
inline constexpr UINT UDM_GETBUDDY = WM_USER + 106;
inline constexpr UINT UDM_SETRANGE32 = WM_USER + 111;
inline constexpr UINT UDM_GETRANGE32 = WM_USER + 112;
inline constexpr UINT UDM_SETPOS32 = WM_USER + 113;
inline constexpr UINT UDM_GETPOS32 = WM_USER + 114;
inline constexpr UINT UDN_DELTAPOS = static_cast<UINT>(-722);

// Date control.
inline constexpr UINT DTS_SHORTDATEFORMAT = 0x0000;
inline constexpr UINT DTS_UPDOWN = 0x0001; // arrows instead of a calendar
inline constexpr UINT DTS_SHOWNONE = 0x0002;
inline constexpr UINT DTS_LONGDATEFORMAT = 0x0004;
inline constexpr UINT DTS_TIMEFORMAT = 0x0009;
inline constexpr UINT DTS_SHORTDATECENTURYFORMAT = 0x000C;
inline constexpr UINT DTS_FORMATMASK = 0x000C;
inline constexpr UINT DTM_GETSYSTEMTIME = 0x1001;
inline constexpr UINT DTM_SETSYSTEMTIME = 0x1002;
inline constexpr UINT DTM_GETRANGE = 0x1003;
inline constexpr UINT DTM_SETRANGE = 0x1004;
inline constexpr UINT DTM_SETFORMAT = 0x1005;
inline constexpr UINT DTM_GETMONTHCAL = 0x1008;
inline constexpr UINT DTM_CLOSEMONTHCAL = 0x100D;
inline constexpr UINT DTN_CLOSEUP = static_cast<UINT>(-753);
inline constexpr UINT DTN_DROPDOWN = static_cast<UINT>(-754);
inline constexpr UINT DTN_DATETIMECHANGE = static_cast<UINT>(-759);
inline constexpr UINT GDT_VALID = 0;
inline constexpr UINT GDT_NONE = 1;
inline constexpr UINT GDTR_MIN = 1;
inline constexpr UINT GDTR_MAX = 2;

// Tab control.
inline constexpr UINT TCIF_TEXT = 0x0001;
inline constexpr UINT TCIF_IMAGE = 0x0002;
inline constexpr UINT TCIF_PARAM = 0x0008;
inline constexpr UINT TCM_GETITEMCOUNT = 0x1304;
inline constexpr UINT TCM_GETITEM = 0x1305;
inline constexpr UINT TCM_SETITEM = 0x1306;
inline constexpr UINT TCM_INSERTITEM = 0x1307;
inline constexpr UINT TCM_DELETEITEM = 0x1308;
inline constexpr UINT TCM_DELETEALLITEMS = 0x1309;
inline constexpr UINT TCM_GETITEMRECT = 0x130A;
inline constexpr UINT TCM_GETCURSEL = 0x130B;
inline constexpr UINT TCM_SETCURSEL = 0x130C;
inline constexpr UINT TCM_HITTEST = 0x130D;
inline constexpr UINT TCM_ADJUSTRECT = 0x1328;
inline constexpr UINT TCN_SELCHANGE = static_cast<UINT>(-551);
inline constexpr UINT TCN_SELCHANGING = static_cast<UINT>(-552);

// Tooltip.
inline constexpr UINT TTS_ALWAYSTIP = 0x0001;
inline constexpr UINT TTS_NOPREFIX = 0x0002; // "&" is shown
inline constexpr UINT TTF_IDISHWND = 0x0001; // the tool is the window in uId
inline constexpr UINT TTDT_AUTOMATIC = 0;    // all three, from the first
inline constexpr UINT TTDT_RESHOW = 1;       // from one tool to the next
inline constexpr UINT TTDT_AUTOPOP = 2;      // how long a tip is shown
inline constexpr UINT TTDT_INITIAL = 3;      // how long the pointer rests before
inline constexpr UINT TTM_ACTIVATE = WM_USER + 1;
inline constexpr UINT TTM_SETDELAYTIME =
    WM_USER + 3; // wParam: TTDT_*; lParam: milliseconds, -1 for the default
inline constexpr UINT TTM_ADDTOOL = WM_USER + 4;
inline constexpr UINT TTM_DELTOOL = WM_USER + 5;
inline constexpr UINT TTM_RELAYEVENT = WM_USER + 7; // lParam: a MSG
inline constexpr UINT TTM_UPDATETIPTEXT = WM_USER + 12;
inline constexpr UINT TTM_GETTOOLCOUNT = WM_USER + 13;
inline constexpr UINT TTM_GETDELAYTIME = WM_USER + 21;
inline constexpr UINT TTM_SETMAXTIPWIDTH = WM_USER + 24; // lParam: pixels, -1 for one line
inline constexpr UINT TTM_GETMAXTIPWIDTH = WM_USER + 25;
inline constexpr UINT TTM_POP = WM_USER + 28;

// Rich edit.
inline constexpr UINT EM_GETEVENTMASK = WM_USER + 59;
inline constexpr UINT EM_SETEVENTMASK = WM_USER + 69;
inline constexpr UINT EM_EXGETSEL = WM_USER + 52;
inline constexpr UINT EM_EXLIMITTEXT = WM_USER + 53;
inline constexpr UINT EM_EXSETSEL = WM_USER + 55;
inline constexpr UINT ENM_NONE = 0;
inline constexpr UINT ENM_CHANGE = 0x0001;
inline constexpr UINT ENM_UPDATE = 0x0002;

} // namespace korvel
