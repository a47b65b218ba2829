#include "gallery/controls_dialog.h"

#include "korvel/window/base/control_messages.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/controls/date_time_ctrl.h"
#include "korvel/window/dialog/dialog_items.h"
#include "texts/program_texts.h"

namespace korvel::gallery {
namespace {

using inspector::InCodePage;
using inspector::ProgramText;

constexpr UINT TemplateId = 300;
constexpr UINT PlusPicture = 15016; // of the library

constexpr int FirstRadio = 30;
constexpr int LastRadio = 31;
constexpr int CheckId = 32;
constexpr int PictureButtonId = 33;
constexpr int TypedChoiceId = 34;
constexpr int OpenChoiceId = 35;
constexpr int NoDateId = 36;
constexpr int TimeId = 37;
constexpr int SliderId = 38;
constexpr int ProgressId = 39;
constexpr int MarqueeId = 40;
constexpr int TabsId = 41;
constexpr int ListId = 42;
constexpr int NoId = -1;

constexpr UINT Stop = WS_TABSTOP;
constexpr UINT Field = Stop | WS_BORDER | ES_AUTOHSCROLL;
constexpr UINT Lines = Stop | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_WANTRETURN;
constexpr UINT List = Stop | WS_BORDER | LVS_REPORT | LVS_SHOWSELALWAYS;
constexpr UINT UpDown = UDS_AUTOBUDDY | UDS_ALIGNRIGHT | UDS_SETBUDDYINT | UDS_ARROWKEYS;

constexpr ProgramText NoText = {"", ""};

struct Control {
    const char* className;
    ProgramText text;
    int id;
    UINT style;
    DialogPlace place;
};

// In the order of Tab.
constexpr Control Controls[] = {
    {"BUTTON", {"Buttons", "Schaltflächen"}, NoId, BS_GROUPBOX, {7, 7, 160, 90}},
    {"BUTTON", {"&First", "&Erste"}, FirstRadio, Stop | WS_GROUP | BS_AUTORADIOBUTTON, {14, 20, 66, 12}},
    {"BUTTON", {"&Second", "&Zweite"}, LastRadio, BS_AUTORADIOBUTTON, {14, 34, 66, 12}},
    {"BUTTON", {"Wi&th a check", "Mit &Haken"}, CheckId, Stop | WS_GROUP | BS_AUTOCHECKBOX, {14, 50, 66, 12}},
    {"BUTTON", {"&Without", "&Ohne Haken"}, NoId, Stop | BS_AUTOCHECKBOX, {14, 64, 66, 12}},
    {"BUTTON", {"Disabled", "Gesperrt"}, NoId, WS_DISABLED | BS_AUTOCHECKBOX, {14, 78, 66, 12}},
    {"BUTTON", {"&Press", "&Drücken"}, NoId, Stop | BS_PUSHBUTTON, {86, 20, 72, 16}},
    {"BUTTON", {"&Add", "Hinzu&fügen"}, PictureButtonId, Stop | BS_PUSHBUTTON, {86, 40, 72, 16}},
    {"BUTTON", {"Disabled", "Gesperrt"}, NoId, Stop | WS_DISABLED | BS_PUSHBUTTON, {86, 60, 72, 16}},

    {"STATIC", {"&Line:", "Zei&le:"}, NoId, 0, {7, 104, 50, 10}},
    {"EDIT", {"One line", "Eine Zeile"}, NoId, Field, {60, 101, 107, 14}},
    {"STATIC", {"Fixed:", "Fest:"}, NoId, 0, {7, 121, 50, 10}},
    {"EDIT", {"Read-only", "Schreibgeschützt"}, NoId, Field | ES_READONLY, {60, 118, 107, 14}},
    {"STATIC", {"Number:", "Zahl:"}, NoId, 0, {7, 138, 50, 10}},
    {"EDIT", {"7", "7"}, NoId, Field | ES_NUMBER, {60, 135, 54, 14}},
    {"msctls_updown32", NoText, NoId, UpDown, {114, 135, 12, 14}},
    {"STATIC", {"Lines:", "Zeilen:"}, NoId, 0, {7, 155, 50, 10}},
    {"EDIT", {"Two\r\nlines", "Zwei\r\nZeilen"}, NoId, Lines, {60, 152, 107, 26}},
    {"STATIC", {"Text:", "Text:"}, NoId, 0, {7, 184, 50, 10}},
    {"RICHEDIT50W", {"As it\ncame in", "Wie er\nankam"}, NoId, Lines, {60, 181, 107, 26}},

    {"STATIC", {"&Choose:", "&Auswahl:"}, NoId, 0, {176, 10, 54, 10}},
    {"COMBOBOX", NoText, ControlsDialog::ChoiceId, Stop | CBS_DROPDOWNLIST, {232, 7, 121, 70}},
    {"STATIC", {"Or type:", "Eingabe:"}, NoId, 0, {176, 28, 54, 10}},
    {"COMBOBOX", NoText, TypedChoiceId, Stop | CBS_DROPDOWN, {232, 25, 121, 70}},
    {"STATIC", {"Open:", "Offen:"}, NoId, 0, {176, 46, 54, 10}},
    {"COMBOBOX", NoText, OpenChoiceId, Stop | WS_BORDER | CBS_SIMPLE, {232, 43, 121, 46}},
    {"STATIC", {"Date:", "Datum:"}, NoId, 0, {176, 95, 54, 10}},
    {"SysDateTimePick32", NoText, ControlsDialog::DateId, Stop | DTS_LONGDATEFORMAT, {232, 92, 121, 14}},
    {"STATIC", {"No date:", "Kein Datum:"}, NoId, 0, {176, 112, 54, 10}},
    {"SysDateTimePick32", NoText, NoDateId, Stop | DTS_SHOWNONE, {232, 109, 121, 14}},
    {"STATIC", {"Time:", "Zeit:"}, NoId, 0, {176, 129, 54, 10}},
    {"SysDateTimePick32", NoText, TimeId, Stop | DTS_TIMEFORMAT | DTS_UPDOWN, {232, 126, 121, 14}},
    {"msctls_trackbar32", NoText, SliderId, Stop | TBS_AUTOTICKS, {176, 144, 177, 18}},
    {"msctls_progress32", NoText, ProgressId, 0, {176, 166, 177, 10}},
    {"msctls_progress32", NoText, MarqueeId, PBS_MARQUEE, {176, 180, 177, 10}},
    {"SysTabControl32", NoText, TabsId, Stop, {176, 194, 177, 36}},

    {"STATIC", {"Points:", "Punkte:"}, NoId, 0, {7, 222, 50, 10}},
    {"SysListView32", NoText, ListId, List, {7, 234, 346, 50}},
    {"BUTTON", {"OK", "OK"}, IDOK, Stop | BS_DEFPUSHBUTTON, {233, 291, 58, 16}},
    {"BUTTON", {"Cancel", "Abbrechen"}, IDCANCEL, Stop | BS_PUSHBUTTON, {295, 291, 58, 16}},
};

constexpr ProgramText Caption = {"Controls", "Steuerelemente"};
constexpr ProgramText Typed = {"typed", "getippt"};
constexpr ProgramText FirstTab = {"General", "Allgemein"};
constexpr ProgramText SecondTab = {"Formats", "Formate"};
constexpr ProgramText CodeColumn = {"Code", "Kodierung"};
constexpr ProgramText HeightColumn = {"Height", "Höhe"};

constexpr const char* Heights[] = {"DHHN2016", "DHHN92", "NAP"};

// A square of one color, with a margin.
Image SquareOf(std::uint32_t color) {
    constexpr int Side = 16;
    constexpr int Margin = 3;
    Image image{Side, Side, std::vector<std::uint32_t>(std::size_t{Side} * Side)};
    for (int i = 0; i < Side * Side; ++i) {
        const auto isInside = [](int place) { return place >= Margin && place < Side - Margin; };
        if (isInside(i % Side) && isInside(i / Side))
            image.pixels[static_cast<std::size_t>(i)] = color;
    }
    return image;
}

} // namespace

ControlsDialog::ControlsDialog() : CDialog(TemplateId), m_images(16, 16) {
    for (const Control& control : Controls)
        m_texts.push_back(InCodePage(control.text));
    m_texts.push_back(InCodePage(Caption));
    std::size_t text = 0;
    for (const Control& control : Controls)
        m_items.push_back(
            {control.className, m_texts[text++].c_str(), control.id, control.style, control.place});
    constexpr UINT Frame = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    m_template = {TemplateId, m_texts.back().c_str(), Frame, {0, 0, 360, 314}, m_items};
    m_resources = {{&m_template, 1}, {}};
    m_host.m_pResources = &m_resources;
    for (const std::uint32_t color : {0xFF2E9E4F, 0xFFD9493B})
        m_images.Add(SquareOf(color));
}

std::intptr_t ControlsDialog::DoModal() {
    struct Former {
        CWinApp* const app = GetHostApp();
        ~Former() { SetHostApp(app); }
    } const former;
    SetHostApp(&m_host);
    return CDialog::DoModal();
}

BOOL ControlsDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    CheckRadioButton(m_hWnd, FirstRadio, LastRadio, FirstRadio);
    CheckDlgButton(m_hWnd, CheckId, 1);
    m_pictureButton.SubclassDlgItem(PictureButtonId, this);
    m_pictureButton.SetImage(PlusPicture);
    FillCombos();
    FillRanges();
    FillList();
    return 1;
}

void ControlsDialog::FillCombos() {
    for (const int id : {ChoiceId, TypedChoiceId, OpenChoiceId})
        for (const char* height : Heights)
            SendDlgItemMessageA(m_hWnd, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(height));
    for (const int id : {ChoiceId, OpenChoiceId})
        SendDlgItemMessageA(m_hWnd, id, CB_SETCURSEL, 0, 0);
    SetDlgItemTextA(m_hWnd, TypedChoiceId, InCodePage(Typed));
    const SYSTEMTIME moment = {2026, 3, 0, 4, 13, 5, 6};
    for (const int id : {DateId, NoDateId, TimeId})
        SendDlgItemMessageA(m_hWnd, id, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&moment));
    SendDlgItemMessageA(m_hWnd, NoDateId, DTM_SETSYSTEMTIME, GDT_NONE, 0);
}

void ControlsDialog::FillRanges() {
    SendDlgItemMessageA(m_hWnd, SliderId, TBM_SETTICFREQ, 10, 0);
    SendDlgItemMessageA(m_hWnd, SliderId, TBM_SETPOS, 1, 40);
    SendDlgItemMessageA(m_hWnd, ProgressId, PBM_SETPOS, 60, 0);
    SendDlgItemMessageA(m_hWnd, MarqueeId, PBM_SETMARQUEE, 1, 0);
    m_tabs.SubclassDlgItem(TabsId, this);
    m_tabs.InsertItem(0, InCodePage(FirstTab));
    m_tabs.InsertItem(1, InCodePage(SecondTab));
}

void ControlsDialog::FillList() {
    m_list.SubclassDlgItem(ListId, this);
    m_list.SetImageList(&m_images);
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    const int half = m_list.GetClientRect().Width() / 2;
    m_list.InsertColumn(0, InCodePage(CodeColumn), half);
    m_list.InsertColumn(1, InCodePage(HeightColumn), half, LVCFMT_CENTER);
    m_list.InsertRow(0, {"T12", {"0.35"}, 0, 0, 0});
    m_list.InsertRow(1, {"T13", {"0.40"}, 0, 0, 1});
    m_list.SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

} // namespace korvel::gallery
