#include "desktop/lists_window.h"

#include "korvel/values/replace_first.h"
#include "korvel/window/core/display.h"
#include "texts/program_texts.h"

#include <algorithm>

namespace korvel::inspector {

namespace {

constexpr const char* PictureFolder = ":/pictures"; // in the program itself
constexpr int SmallestWidth = 560;
constexpr int FirstListHeight = 320;
constexpr int SmallestList = 60;
constexpr int Margin = 10;
constexpr int Gap = 8;
constexpr int TextDrop = 5; // a label draws at the top of its rectangle, a field in the middle
constexpr UINT RefreshChoice = WM_USER;
constexpr UINT RestoreMarks = WM_USER + 1;

enum ControlId { TitleId = 201, TreeId, ListId, ValueId };

// A menu text without the mark of its key.
std::string Plain(std::string text) {
    ReplaceFirst(text, "&", "");
    return text;
}

int LineHeight() {
    return GetSystemMetrics(SM_KORVEL_TEXTHEIGHT) + 2 * TextDrop;
}

int WidthOf(const std::string& text) {
    return Display().TextWidth(text) + Gap;
}

std::vector<std::string> TitlesOf(const std::deque<DocumentList>& lists) {
    std::vector<std::string> titles;
    titles.reserve(lists.size());
    for (const DocumentList& list : lists)
        titles.push_back(list.title);
    return titles;
}

std::string UseText(std::size_t count) {
    const ProgramTexts& texts = TheProgramTexts;
    if (count < 2)
        return InCodePage(count == 0 ? texts.notUsed : texts.usedOnce);
    std::string text = InCodePage(texts.usedTimes);
    ReplaceFirst(text, "%1", std::to_string(count));
    return text;
}

// What the font of the desktop makes of the sizes of the window and its parts.
struct Sizes {
    int line = LineHeight();
    int label = 0;
    int beside = 0; // what is to the right of a combo
    int width = 0;
    int height = FirstListHeight + 2 * Margin + 4 * line + 3 * Gap;
};

Sizes TheSizes() {
    const ProgramTexts& texts = TheProgramTexts;
    constexpr std::size_t ManyTimes = 99'999;
    Sizes sizes;
    sizes.label =
        std::max(WidthOf(InCodePage(texts.listOfLists)), WidthOf(InCodePage(texts.valueOfList))) + Gap;
    sizes.beside = std::max(sizes.line + WidthOf(InCodePage(texts.asTree)), WidthOf(UseText(ManyTimes)));
    sizes.width = std::max(SmallestWidth, WidthOf(InCodePage(texts.listHelp)) + 2 * Margin);
    return sizes;
}

// A place of this size in the middle of another one, but inside `room`.
CRect PlaceOver(const CRect& around, const Sizes& sizes, const CRect& room) {
    const int width = std::min(sizes.width, room.Width());
    const int height = std::min(sizes.height, room.Height());
    const int left = std::clamp(around.left + (around.Width() - width) / 2, room.left, room.right - width);
    const int top = std::clamp(around.top + (around.Height() - height) / 2, room.top, room.bottom - height);
    return {left, top, left + width, top + height};
}

// In which all texts can be read, as far as there is room.
CSize LeastSize(const CRect& room) {
    const Sizes sizes = TheSizes();
    return {std::min(sizes.width, room.Width()),
            std::min(sizes.height - FirstListHeight + SmallestList, room.Height())};
}

} // namespace

ListsWindow::ListsWindow(const LandXmlDocument& document, CWnd& owner, const CRect& room)
    : m_lists(document, PictureFolder), m_leastSize(LeastSize(room)) {
    const CRect around = korvel::GetWindowRect(GetTopLevelParent(owner.m_hWnd));
    const std::string caption = Plain(InCodePage(TheProgramTexts.lists));
    CreateEx(0, "KorvelFrame", caption.c_str(), WS_OVERLAPPEDWINDOW, PlaceOver(around, TheSizes(), room),
             &owner, 0);
    CreateControls();
    m_titles = std::make_unique<EditableWordList>(TitlesOf(m_lists.All()), 0);
    m_title.Show(m_titles->Selected({0}));
    ShowList();
}

void ListsWindow::Show() {
    ShowWindow(SW_SHOW);
    m_title.SetFocus();
}

void ListsWindow::CreateControls() {
    const ProgramTexts& texts = TheProgramTexts;
    constexpr UINT Visible = WS_CHILD | WS_VISIBLE;
    const CRect combo = {0, 0, SmallestWidth, TheSizes().line};
    m_titleLabel.Create(InCodePage(texts.listOfLists), Visible, {}, this, 0);
    m_title.Create(combo, this, TitleId);
    m_asTree.Create(InCodePage(texts.asTree), Visible | WS_TABSTOP | BS_AUTOCHECKBOX, {}, this, TreeId);
    CreateList();
    m_valueLabel.Create(InCodePage(texts.valueOfList), Visible, {}, this, 0);
    m_value.Create(combo, this, ValueId);
    m_use.Create("", Visible, {}, this, 0);
    m_help.Create(InCodePage(texts.listHelp), Visible, {}, this, 0);
    m_notice.Create(InCodePage(texts.listsAreNotSaved), Visible, {}, this, 0);
    Place();
}

// A list is flat or a tree for its life.
void ListsWindow::CreateList() {
    m_list = std::make_unique<CComboList>(IsTree() ? eDesignTree : eDesignFlat);
    m_list->Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER | LVS_REPORT | LVS_SINGLESEL |
                       LVS_SHOWSELALWAYS | LVS_EDITLABELS,
                   {}, this, ListId);
    m_list->EnableCommands(CComboList::eCommandAdd | CComboList::eCommandRename | CComboList::eCommandDelete,
                           true);
}

void ListsWindow::Place() {
    const CRect room = GetClientRect();
    const Sizes sizes = TheSizes();
    const int line = sizes.line;
    const int right = room.right - Margin;
    const int comboLeft = Margin + sizes.label;
    const int comboRight = std::max(comboLeft, right - Gap - sizes.beside);
    const auto across = [&](int top) { return CRect{Margin, top, right, top + line}; };
    const auto label = [&](int top) { return CRect{Margin, top + TextDrop, comboLeft, top + line}; };
    const auto combo = [&](int top) { return CRect{comboLeft, top, comboRight, top + line}; };
    const auto beside = [&](int top) { return CRect{comboRight + Gap, top, right, top + line}; };
    m_titleLabel.MoveWindow(label(Margin));
    m_title.MoveWindow(combo(Margin));
    m_asTree.MoveWindow(beside(Margin));
    const int listTop = Margin + line + Gap;
    const bool isNarrow = WidthOf(InCodePage(TheProgramTexts.listHelp)) > right - Margin;
    const int helpHeight = isNarrow ? 2 * line : line;
    const int listBottom =
        std::max(room.bottom - Margin - 2 * line - helpHeight - 2 * Gap, listTop + SmallestList);
    m_list->MoveWindow({Margin, listTop, right, listBottom});
    const int valueTop = listBottom + Gap;
    m_valueLabel.MoveWindow(label(valueTop));
    m_value.MoveWindow(combo(valueTop));
    m_use.MoveWindow(beside(valueTop + TextDrop));
    const int helpTop = valueTop + line + Gap;
    m_help.MoveWindow({Margin, helpTop, right, helpTop + helpHeight});
    m_notice.MoveWindow(across(helpTop + helpHeight));
}

DocumentList* ListsWindow::Shown() {
    return m_shown < m_lists.All().size() ? &m_lists.All()[m_shown] : nullptr;
}

void ListsWindow::ShowList() {
    DocumentList* list = Shown();
    if (!list)
        return;
    list->words.SetFlags((list->words.GetEnumFlags() & ~std::uint32_t{ENF_Tree}) | TreeFlag());
    list->words.SetChanged([this] { OnWordsChanged(); });
    list->words.SetRefused([this] { korvel::PostMessageA(m_hWnd, RestoreMarks, 0, 0); });
    m_list->Initialize(InCodePage(TheProgramTexts.newValue), list->used);
    ShowChoice(EditableWordList::FirstSelected(list->used));
}

// The list notifies of a check by the mouse, but not of one by the keyboard: it is asked instead.
void ListsWindow::StoreChecks() {
    DocumentList* list = Shown();
    if (list && m_list->IsInitialized())
        list->used = m_list->GetValue();
    m_list->UnIntialize();
}

// The list shows no check for a mark of use that the user took away, but the words still have it.
void ListsWindow::ShowMarksAgain() {
    DocumentList* list = Shown();
    if (!list || !m_list->IsInitialized())
        return;
    const int row = m_list->GetCurrentRow();
    StoreChecks();
    m_list->Initialize(InCodePage(TheProgramTexts.newValue), list->used);
    m_list->SetCurrentRow(row);
}

// A command on a group changes many words: the choice follows once, when all is done.
void ListsWindow::OnWordsChanged() {
    if (!m_isRefreshing)
        m_isRefreshing = korvel::PostMessageA(m_hWnd, RefreshChoice, 0, 0);
}

// The numbers of a copy are those of the words.
void ListsWindow::ShowChoice(long id) {
    auto choice = std::make_unique<EditableWordList>(Shown()->words);
    choice->SetChanged(nullptr);
    choice->SetFlags(TreeFlag());
    m_value.Show(choice->Selected({id}));
    m_choice = std::move(choice);
    ShowUse();
}

void ListsWindow::ShowUse() {
    const long id = EditableWordList::FirstSelected(m_value.Value());
    const auto& counts = Shown()->counts;
    const auto count = counts.find(id);
    m_use.SetWindowTextA(id == -1 ? std::string() : UseText(count == counts.end() ? 0 : count->second));
}

LRESULT ListsWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE) {
        ShowWindow(SW_HIDE);
        return 0;
    }
    if (message == WM_GETMINMAXINFO) {
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {m_leastSize.cx, m_leastSize.cy};
        return 0;
    }
    if (message == RefreshChoice) {
        m_isRefreshing = false;
        if (Shown())
            ShowChoice(EditableWordList::FirstSelected(m_value.Value()));
        return 0;
    }
    if (message == RestoreMarks) {
        ShowMarksAgain();
        return 0;
    }
    if (message == WM_CONTEXTMENU && lParam == MAKELPARAM(-1, -1)) {
        ShowListMenu();
        return 0;
    }
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE && m_list)
        Place();
    return result;
}

// The list opens its menu at a press of the mouse; the menu key means the row that the keyboard is at. Where
// there is none, as after a removal, the press is above all rows: it must not name the first one.
void ListsWindow::ShowListMenu() {
    if (GetFocus() != m_list->m_hWnd)
        return;
    m_list->EnsureVisible(m_list->GetCurrentRow(), false);
    const CRect label = m_list->GetRectLabel(m_list->GetCurrentRow());
    m_list->SendMessageA(WM_RBUTTONDOWN, 0, MAKELPARAM(label.left, label.bottom - 1));
}

bool ListsWindow::PreTranslateMessage(MSG& message) {
    const bool isDown = message.message == WM_KEYDOWN;
    const bool isEditingLabel = m_list && m_list->GetEditControl() != nullptr;
    if (isDown && message.wParam == VK_TAB && !isEditingLabel) {
        const bool back = IsKeyDown(VK_SHIFT);
        korvel::SetFocus(GetNextDlgTabItem(m_hWnd, GetFocus(), back));
        return true;
    }
    if (isDown && message.wParam == VK_ESCAPE && !isEditingLabel) {
        ShowWindow(SW_HIDE);
        return true;
    }
    return CWnd::PreTranslateMessage(message);
}

bool ListsWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    const UINT code = HIWORD(wParam);
    if (id == TitleId && code == ComboListChanged) {
        const long chosen = EditableWordList::FirstSelected(m_title.Value());
        if (chosen != -1 && static_cast<std::size_t>(chosen) != m_shown) {
            StoreChecks();
            m_shown = static_cast<std::size_t>(chosen);
            ShowList();
        }
        return true;
    }
    if (id == ValueId && code == ComboListChanged) {
        ShowUse();
        return true;
    }
    if (id == TreeId) {
        StoreChecks();
        CreateList();
        Place();
        ShowList();
        return true;
    }
    return CWnd::OnCommand(wParam, lParam);
}

} // namespace korvel::inspector
