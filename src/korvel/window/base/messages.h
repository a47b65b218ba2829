#pragma once

#include "korvel/window/base/types.h"

/// The numbers of the window model's messages, notifications, styles and states; only those that the library
/// sends, receives or tests.
namespace korvel {

inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_MOVE = 0x0003;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_ACTIVATE = 0x0006;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_ENABLE = 0x000A;
inline constexpr UINT WM_SETREDRAW = 0x000B;
inline constexpr UINT WM_SETTEXT = 0x000C;
inline constexpr UINT WM_GETTEXT = 0x000D;
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E;
inline constexpr UINT WM_PAINT = 0x000F; // wParam: the CDC* to paint with
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_ERASEBKGND = 0x0014;
inline constexpr UINT WM_SHOWWINDOW = 0x0018;
inline constexpr UINT WM_SETCURSOR = 0x0020;
inline constexpr UINT WM_MOUSEACTIVATE = 0x0021;
inline constexpr UINT WM_GETMINMAXINFO = 0x0024;
inline constexpr UINT WM_NEXTDLGCTL =
    0x0028; // wParam: a control if the low word of lParam says so, else 1 for back
inline constexpr UINT WM_DRAWITEM = 0x002B;
inline constexpr UINT WM_SETFONT = 0x0030;
inline constexpr UINT WM_GETFONT = 0x0031;
inline constexpr UINT WM_WINDOWPOSCHANGING = 0x0046;
inline constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_CONTEXTMENU = 0x007B;
inline constexpr UINT WM_STYLECHANGED = 0x007D; // wParam: GWL_STYLE or GWL_EXSTYLE
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_GETDLGCODE = 0x0087;
inline constexpr UINT WM_NCLBUTTONDOWN = 0x00A1;
inline constexpr UINT WM_NCRBUTTONDOWN = 0x00A4;
inline constexpr UINT WM_NCMBUTTONDOWN = 0x00A7;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;
inline constexpr UINT WM_SYSKEYUP = 0x0105;
inline constexpr UINT WM_SYSCHAR = 0x0106;
inline constexpr UINT WM_KEYLAST = 0x0109;
inline constexpr UINT WM_INITDIALOG = 0x0110; // wParam: the control that is about to get the focus
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_SYSCOMMAND = 0x0112;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_HSCROLL = 0x0114;
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_RBUTTONUP = 0x0205;
inline constexpr UINT WM_MBUTTONDOWN = 0x0207;
inline constexpr UINT WM_MOUSEWHEEL = 0x020A; // high word of wParam: the delta, 120 a notch
inline constexpr UINT WM_CAPTURECHANGED = 0x0215;
inline constexpr UINT WM_MOUSELEAVE = 0x02A3;
inline constexpr UINT WM_CUT = 0x0300;
inline constexpr UINT WM_COPY = 0x0301;
inline constexpr UINT WM_PASTE = 0x0302;
inline constexpr UINT WM_CLEAR = 0x0303;
inline constexpr UINT WM_UNDO = 0x0304;
// Own: lParam: the view::ValueView* to fill in; 0: the window shows no single value.
inline constexpr UINT WM_KORVEL_READVALUE = 0x03F0;
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT DM_GETDEFID = WM_USER;
inline constexpr UINT DM_SETDEFID = WM_USER + 1;

// Keys.
inline constexpr UINT VK_LBUTTON = 0x01;
inline constexpr UINT VK_BACK = 0x08;
inline constexpr UINT VK_TAB = 0x09;
inline constexpr UINT VK_RETURN = 0x0D;
inline constexpr UINT VK_SHIFT = 0x10;
inline constexpr UINT VK_CONTROL = 0x11;
inline constexpr UINT VK_MENU = 0x12;
inline constexpr UINT VK_ESCAPE = 0x1B;
inline constexpr UINT VK_SPACE = 0x20;
inline constexpr UINT VK_PRIOR = 0x21;
inline constexpr UINT VK_NEXT = 0x22;
inline constexpr UINT VK_END = 0x23;
inline constexpr UINT VK_HOME = 0x24;
inline constexpr UINT VK_LEFT = 0x25;
inline constexpr UINT VK_UP = 0x26;
inline constexpr UINT VK_RIGHT = 0x27;
inline constexpr UINT VK_DOWN = 0x28;
inline constexpr UINT VK_INSERT = 0x2D;
inline constexpr UINT VK_DELETE = 0x2E;
inline constexpr UINT VK_MULTIPLY = 0x6A;
inline constexpr UINT VK_ADD = 0x6B;
inline constexpr UINT VK_SUBTRACT = 0x6D;
inline constexpr UINT VK_F2 = 0x71;
inline constexpr UINT VK_F4 = 0x73;
inline constexpr int KeyIsDown = -32768; // own: what GetKeyState returns for a key that is down

// Mouse message flags (wParam).
inline constexpr UINT MK_LBUTTON = 0x0001;
inline constexpr UINT MK_RBUTTON = 0x0002;
inline constexpr UINT MK_SHIFT = 0x0004;
inline constexpr UINT MK_CONTROL = 0x0008;
inline constexpr UINT MK_MBUTTON = 0x0010;

// What WM_MOUSEACTIVATE returns.
inline constexpr LRESULT MA_ACTIVATE = 1;
inline constexpr LRESULT MA_ACTIVATEANDEAT = 2;
inline constexpr LRESULT MA_NOACTIVATE = 3;
inline constexpr LRESULT MA_NOACTIVATEANDEAT = 4;

// Window styles.
inline constexpr UINT WS_TABSTOP = 0x00010000;
inline constexpr UINT WS_GROUP = 0x00020000;
inline constexpr UINT WS_THICKFRAME = 0x00040000;
inline constexpr UINT WS_SYSMENU = 0x00080000;
inline constexpr UINT WS_HSCROLL = 0x00100000;
inline constexpr UINT WS_DLGFRAME = 0x00400000;
inline constexpr UINT WS_VSCROLL = 0x00200000;
inline constexpr UINT WS_BORDER = 0x00800000;
inline constexpr UINT WS_CAPTION = 0x00C00000;
inline constexpr UINT WS_DISABLED = 0x08000000;
inline constexpr UINT WS_VISIBLE = 0x10000000;
inline constexpr UINT WS_CHILD = 0x40000000;
inline constexpr UINT WS_POPUP = 0x80000000;
inline constexpr UINT WS_OVERLAPPEDWINDOW = 0x00CF0000;
inline constexpr UINT WS_EX_TOPMOST = 0x00000008;
inline constexpr UINT WS_EX_TOOLWINDOW = 0x00000080;
inline constexpr UINT WS_EX_CLIENTEDGE = 0x00000200;
inline constexpr UINT WS_EX_CONTROLPARENT = 0x00010000;
inline constexpr UINT WS_EX_NOACTIVATE = 0x08000000;

// Dialog styles.
inline constexpr UINT DS_ABSALIGN = 0x0001; // the place is on the screen, not relative to the owner
inline constexpr UINT DS_SETFONT = 0x0040;
inline constexpr UINT DS_MODALFRAME = 0x0080;
inline constexpr UINT DS_CONTROL = 0x0400; // a page: it leaves the focus where it is
inline constexpr UINT DS_CENTER = 0x0800;

// ShowWindow, SetWindowPos, RedrawWindow, SetWindowLongPtrA.
inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;
inline constexpr int SW_SHOWNA = 8;
inline constexpr UINT SWP_NOSIZE = 0x0001;
inline constexpr UINT SWP_NOMOVE = 0x0002;
inline constexpr UINT SWP_NOZORDER = 0x0004;
inline constexpr UINT SWP_NOACTIVATE = 0x0010;
inline constexpr UINT SWP_SHOWWINDOW = 0x0040;
inline constexpr UINT SWP_HIDEWINDOW = 0x0080;
inline constexpr UINT RDW_INVALIDATE = 0x0001;
inline constexpr UINT RDW_ERASE = 0x0004;
inline constexpr UINT RDW_ALLCHILDREN = 0x0080;
inline constexpr UINT RDW_UPDATENOW = 0x0100;
inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_OWNER = 4;
inline constexpr UINT GW_CHILD = 5;
inline constexpr int GWLP_WNDPROC = -4;
inline constexpr int GWLP_ID = -12;
inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;
inline constexpr int GWLP_USERDATA = -21;

// Scroll bars: which one, and what the user does (low word of wParam in WM_VSCROLL and WM_HSCROLL).
inline constexpr int SB_HORZ = 0;
inline constexpr int SB_VERT = 1;
inline constexpr UINT SB_LINEUP = 0;
inline constexpr UINT SB_LINEDOWN = 1;
inline constexpr UINT SB_PAGEUP = 2;
inline constexpr UINT SB_PAGEDOWN = 3;
inline constexpr UINT SB_THUMBPOSITION = 4;
inline constexpr UINT SB_THUMBTRACK = 5;
inline constexpr UINT SB_TOP = 6;
inline constexpr UINT SB_BOTTOM = 7;
inline constexpr UINT SB_ENDSCROLL = 8;

// What WM_GETDLGCODE returns, added up; lParam is the MSG of the key in question, or 0.
inline constexpr UINT DLGC_WANTARROWS = 0x0001;
inline constexpr UINT DLGC_WANTTAB = 0x0002;
inline constexpr UINT DLGC_WANTALLKEYS = 0x0004;
inline constexpr UINT DLGC_HASSETSEL = 0x0008;
inline constexpr UINT DLGC_DEFPUSHBUTTON = 0x0010;
inline constexpr UINT DLGC_UNDEFPUSHBUTTON = 0x0020;
inline constexpr UINT DLGC_RADIOBUTTON = 0x0040;
inline constexpr UINT DLGC_WANTCHARS = 0x0080;
inline constexpr UINT DLGC_STATIC = 0x0100;
inline constexpr UINT DLGC_BUTTON = 0x2000;
inline constexpr unsigned DC_HASDEFID = 0x534B; // high word of what DM_GETDEFID returns

// Message boxes.
inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_OKCANCEL = 0x01;
inline constexpr UINT MB_YESNOCANCEL = 0x03;
inline constexpr UINT MB_YESNO = 0x04;
inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONWARNING = 0x30;
inline constexpr UINT MB_ICONINFORMATION = 0x40;
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

// Results of opening a path: above OpenPathFailed it was opened.
inline constexpr int OpenPathFailed = 32;
inline constexpr int SE_ERR_FNF = 2;          // there is no such file
inline constexpr int SE_ERR_ACCESSDENIED = 5; // it may not be read
inline constexpr int SE_ERR_OOM = 8;          // out of memory
inline constexpr int SE_ERR_NOASSOC = 31;     // there is no program for files of its kind

// System colors and metrics.
inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_3DFACE = COLOR_BTNFACE;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_GRAYTEXT = 17;
inline constexpr int COLOR_BTNTEXT = 18;
inline constexpr int COLOR_INFOTEXT = 23;
inline constexpr int COLOR_INFOBK = 24;
inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CXVSCROLL = 2;
inline constexpr int SM_CYHSCROLL = 3;
inline constexpr int SM_CXHSCROLL = 21;
inline constexpr int SM_CXEDGE = 45;
inline constexpr int SM_CYEDGE = 46;
inline constexpr int SM_CXDOUBLECLK = 36;
inline constexpr int SM_KORVEL_TEXTHEIGHT = 0x1000; // own: height of a line of the default font
inline constexpr int SM_KORVEL_TABHEIGHT = 0x1001;  // own: height of a tab
inline constexpr int SM_KORVEL_ARROWWIDTH = 0x1002; // own: width of a combo box's arrow beside its text field

// Edit control.
inline constexpr UINT ES_MULTILINE = 0x0004;
inline constexpr UINT ES_PASSWORD = 0x0020;
inline constexpr UINT ES_AUTOHSCROLL = 0x0080;
inline constexpr UINT ES_READONLY = 0x0800;
inline constexpr UINT ES_WANTRETURN = 0x1000;
inline constexpr UINT ES_NUMBER = 0x2000;
inline constexpr UINT EM_GETSEL = 0x00B0;
inline constexpr UINT EM_SETSEL = 0x00B1;
inline constexpr UINT EM_GETMODIFY = 0x00B8;
inline constexpr UINT EM_SETMODIFY = 0x00B9;
inline constexpr UINT EM_REPLACESEL = 0x00C2;
inline constexpr UINT EM_LIMITTEXT = 0x00C5;
inline constexpr UINT EM_UNDO = 0x00C7;
inline constexpr UINT EM_SETREADONLY = 0x00CF;
inline constexpr UINT EM_SETMARGINS = 0x00D3; // wParam: EC_*; lParam: left and right, 16 bits each
inline constexpr UINT EM_GETMARGINS = 0x00D4;
inline constexpr UINT EC_LEFTMARGIN = 0x0001;
inline constexpr UINT EC_RIGHTMARGIN = 0x0002;
inline constexpr UINT EC_USEFONTINFO = 0xFFFF; // instead of a margin, or of EC_*: as the font has it
inline constexpr UINT EM_GETLIMITTEXT = 0x00D5;
inline constexpr UINT EN_SETFOCUS = 0x0100;
inline constexpr UINT EN_KILLFOCUS = 0x0200;
inline constexpr UINT EN_CHANGE = 0x0300;
inline constexpr UINT EN_UPDATE = 0x0400;
inline constexpr UINT EN_MAXTEXT = 0x0501;

// Button.
inline constexpr UINT BS_PUSHBUTTON = 0x0;
inline constexpr UINT BS_DEFPUSHBUTTON = 0x1;
inline constexpr UINT BS_CHECKBOX = 0x2;
inline constexpr UINT BS_AUTOCHECKBOX = 0x3;
inline constexpr UINT BS_RADIOBUTTON = 0x4;
inline constexpr UINT BS_GROUPBOX = 0x7;
inline constexpr UINT BS_AUTORADIOBUTTON = 0x9;
inline constexpr UINT BS_OWNERDRAW = 0xB;
inline constexpr UINT BS_TYPEMASK = 0xF;
inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
inline constexpr UINT BM_SETSTYLE = 0x00F4; // wParam: a BS_* type; lParam: 1 to show it
inline constexpr UINT BM_CLICK = 0x00F5;
inline constexpr UINT BM_SETIMAGE = 0x00F7; // lParam: an Image, copied; 0: none
inline constexpr UINT BN_CLICKED = 0;
inline constexpr int BST_UNCHECKED = 0;
inline constexpr int BST_CHECKED = 1;

// Static.
inline constexpr UINT SS_NOPREFIX = 0x80;

// Owner drawing and frame controls.
inline constexpr UINT ODT_LISTVIEW = 102;
inline constexpr UINT ODT_BUTTON = 4;
inline constexpr UINT ODS_SELECTED = 0x0001;
inline constexpr UINT ODS_DISABLED = 0x0004;
inline constexpr UINT ODS_FOCUS = 0x0010;
inline constexpr UINT DFC_SCROLL = 3;
inline constexpr UINT DFC_BUTTON = 4;
inline constexpr UINT DFCS_BUTTONCHECK = 0x0000;
inline constexpr UINT DFCS_BUTTONPUSH = 0x0010;
inline constexpr UINT DFCS_SCROLLUP = 0x0000;
inline constexpr UINT DFCS_SCROLLDOWN = 0x0001;
inline constexpr UINT DFCS_SCROLLLEFT = 0x0002;
inline constexpr UINT DFCS_SCROLLRIGHT = 0x0003;
inline constexpr UINT DFCS_INACTIVE = 0x0100;
inline constexpr UINT DFCS_PUSHED = 0x0200;
inline constexpr UINT DFCS_CHECKED = 0x0400;
inline constexpr UINT DFCS_HOT = 0x1000;
inline constexpr UINT DT_LEFT = 0x0000;
inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_RIGHT = 0x0002;
inline constexpr UINT DT_VCENTER = 0x0004;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;
inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DOT = 2;

// Report list.
inline constexpr UINT LVS_REPORT = 0x0001;
inline constexpr UINT LVS_SINGLESEL = 0x0004;
inline constexpr UINT LVS_SHOWSELALWAYS = 0x0008;
inline constexpr UINT LVS_EDITLABELS = 0x0200;
inline constexpr UINT LVS_OWNERDRAWFIXED = 0x0400;
inline constexpr UINT LVS_NOCOLUMNHEADER = 0x4000;
inline constexpr UINT LVS_EX_GRIDLINES = 0x0001;
inline constexpr UINT LVS_EX_CHECKBOXES = 0x0004;
inline constexpr UINT LVS_EX_FULLROWSELECT = 0x0020;
inline constexpr UINT LVS_EX_LABELTIP = 0x4000; // a tooltip shows a label that is cut off
inline constexpr UINT LVIF_TEXT = 0x0001;
inline constexpr UINT LVIF_IMAGE = 0x0002;
inline constexpr UINT LVIF_PARAM = 0x0004;
inline constexpr UINT LVIF_STATE = 0x0008;
inline constexpr UINT LVIF_INDENT = 0x0010;
inline constexpr UINT LVCF_FMT = 0x0001;
inline constexpr UINT LVCF_WIDTH = 0x0002;
inline constexpr UINT LVCF_TEXT = 0x0004;
inline constexpr UINT LVIS_FOCUSED = 0x0001;
inline constexpr UINT LVIS_SELECTED = 0x0002;
inline constexpr UINT LVIS_STATEIMAGEMASK = 0xF000;
inline constexpr UINT LVNI_FOCUSED = 0x0001;
inline constexpr UINT LVNI_SELECTED = 0x0002;
inline constexpr UINT LVHT_NOWHERE = 0x0001;
inline constexpr UINT LVHT_ONITEMICON = 0x0002;
inline constexpr UINT LVHT_ONITEMLABEL = 0x0004;
inline constexpr UINT LVHT_ONITEMSTATEICON = 0x0008;
inline constexpr int LVIR_BOUNDS = 0;
inline constexpr int LVIR_ICON = 1;
inline constexpr int LVIR_LABEL = 2;
inline constexpr int LVCFMT_LEFT = 0;
inline constexpr int LVCFMT_RIGHT = 1;
inline constexpr int LVCFMT_CENTER = 2;
inline constexpr int LVCFMT_JUSTIFYMASK = 3;
inline constexpr int LVSCW_AUTOSIZE = -1;
inline constexpr int LVSCW_AUTOSIZE_USEHEADER = -2;
inline constexpr UINT LVM_FIRST = 0x1000;
inline constexpr UINT LVM_GETITEMCOUNT = LVM_FIRST + 4;
inline constexpr UINT LVM_GETITEM = LVM_FIRST + 5;
inline constexpr UINT LVM_SETITEM = LVM_FIRST + 6;
inline constexpr UINT LVM_INSERTITEM = LVM_FIRST + 7;
inline constexpr UINT LVM_DELETEITEM = LVM_FIRST + 8;
inline constexpr UINT LVM_DELETEALLITEMS = LVM_FIRST + 9;
inline constexpr UINT LVM_GETNEXTITEM = LVM_FIRST + 12;
inline constexpr UINT LVM_HITTEST = LVM_FIRST + 18;
inline constexpr UINT LVM_ENSUREVISIBLE = LVM_FIRST + 19;
inline constexpr UINT LVM_EDITLABEL = LVM_FIRST + 23; // 4119
inline constexpr UINT LVM_GETEDITCONTROL = LVM_FIRST + 24;
inline constexpr UINT LVM_SETCOLUMN = LVM_FIRST + 26;
inline constexpr UINT LVM_INSERTCOLUMN = LVM_FIRST + 27;
inline constexpr UINT LVM_GETCOLUMNWIDTH = LVM_FIRST + 29;
inline constexpr UINT LVM_GETHEADER = LVM_FIRST + 31;
inline constexpr UINT LVM_GETTOPINDEX = LVM_FIRST + 39;
inline constexpr UINT LVM_GETCOUNTPERPAGE = LVM_FIRST + 40;
inline constexpr UINT LVM_SETITEMSTATE = LVM_FIRST + 43;
inline constexpr UINT LVM_GETITEMSTATE = LVM_FIRST + 44;
inline constexpr UINT LVM_GETITEMTEXT = LVM_FIRST + 45;
inline constexpr UINT LVM_SETITEMTEXT = LVM_FIRST + 46;
inline constexpr UINT LVM_GETSELECTEDCOUNT = LVM_FIRST + 50;
inline constexpr UINT LVM_SETEXTENDEDLISTVIEWSTYLE = LVM_FIRST + 54;
inline constexpr UINT LVM_GETEXTENDEDLISTVIEWSTYLE = LVM_FIRST + 55;
inline constexpr UINT LVM_SUBITEMHITTEST = LVM_FIRST + 57;
inline constexpr UINT LVM_GETSELECTIONMARK = LVM_FIRST + 66;
inline constexpr UINT LVM_SETSELECTIONMARK = LVM_FIRST + 67;
// Own, of lists that are read and used without looking at them (window/base/list_view.h).
inline constexpr UINT LVM_KORVEL_READLIST = LVM_FIRST + 0xF00; // lParam: the view::ListView* to fill in
// lParam: the view::CellView* to fill in; wParam 1: of the cell at the upper left corner of its bounds. 0: there
// is no such cell.
inline constexpr UINT LVM_KORVEL_READCELL = LVM_FIRST + 0xF01;
// lParam: a const view::CellPlace*, which the user chose without the mouse; 0: nothing was chosen.
inline constexpr UINT LVM_KORVEL_CHOOSECELL = LVM_FIRST + 0xF02;
inline constexpr UINT NM_CLICK = static_cast<UINT>(-2);
inline constexpr UINT NM_DBLCLK = static_cast<UINT>(-3);
inline constexpr UINT NM_RETURN = static_cast<UINT>(-4);
inline constexpr UINT NM_RCLICK = static_cast<UINT>(-5);
inline constexpr UINT NM_SETFOCUS = static_cast<UINT>(-7);
inline constexpr UINT NM_KILLFOCUS = static_cast<UINT>(-8);
inline constexpr UINT LVN_ITEMCHANGING = static_cast<UINT>(-100);
inline constexpr UINT LVN_ITEMCHANGED = static_cast<UINT>(-101);
inline constexpr UINT LVN_INSERTITEM = static_cast<UINT>(-102);
inline constexpr UINT LVN_DELETEITEM = static_cast<UINT>(-103);
inline constexpr UINT LVN_DELETEALLITEMS = static_cast<UINT>(-104);
inline constexpr UINT LVN_BEGINLABELEDIT = static_cast<UINT>(-105);
inline constexpr UINT LVN_ENDLABELEDIT = static_cast<UINT>(-106);
inline constexpr UINT LVN_COLUMNCLICK = static_cast<UINT>(-108);
inline constexpr UINT LVN_BEGINDRAG = static_cast<UINT>(-109);
inline constexpr UINT LVN_ITEMACTIVATE = static_cast<UINT>(-114);
inline constexpr UINT LVN_KEYDOWN = static_cast<UINT>(-155);

// Header control.
inline constexpr UINT HDM_GETITEMCOUNT = 0x1200;
inline constexpr UINT HDN_ITEMCHANGED = static_cast<UINT>(-301);
inline constexpr UINT HDN_BEGINTRACK = static_cast<UINT>(-306);
inline constexpr UINT HDN_ENDTRACK = static_cast<UINT>(-307);

inline constexpr int IDC_ARROW = 32512;
inline constexpr int IDC_WAIT = 32514;
inline constexpr int IDC_SIZEWE = 32644;

} // namespace korvel
