#include "editing/grid_pane.h"

#include "editing/row_icon_pictures.h"
#include "korvel/window/core/display.h"
#include "korvel/window/core/registered_messages.h"
#include "landxml/row_icon.h"
#include "program/member_path.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <string_view>

namespace korvel::inspector {

namespace {

constexpr CRect FirstPlace = {0, 0, 900, 600}; // until a layout places it
constexpr int GridId = 105;
constexpr std::size_t RowsAtOnce = 1024;
constexpr UINT FrameIsOver = WM_USER + 1; // posted by the pane to itself

// The child whose name begins the path; of several, the one with the longest name.
grid::CTreeItem* FindStep(const ChildList& children, std::string_view path) {
    grid::CTreeItem* found = nullptr;
    for (grid::CTreeItem* child : children)
        if (StepAt(path, child->info->text) > (found ? found->info->text.size() : 0))
            found = child;
    return found;
}

} // namespace

GridPane::GridPane() {
    CreateEx(0, "KorvelFrame", InCodePage(TheProgramTexts.attributes).c_str(), 0, FirstPlace, nullptr, 0);
    m_grid = MakeGrid();
    m_grid->ShowWindow(SW_SHOW);
}

// Hidden: until it has its rows, the former one is seen.
std::unique_ptr<AttributeGrid> GridPane::MakeGrid() {
    auto grid = std::make_unique<AttributeGrid>(&m_observer, &m_enumerations);
    grid->Create(WS_CHILD | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS, GetClientRect(),
                 this, GridId);
    for (const EGridOption option :
         {EGridOption::AngleUnit, EGridOption::ExactEditText, EGridOption::EscapeCancels,
          EGridOption::InlineErrors, EGridOption::StationInput, EGridOption::KeyboardEditing,
          EGridOption::WideIntegers, EGridOption::QuietCopy})
        grid->SetGridOption(option, true);
    grid->SetAllowCopyClipboard(true);
    grid->SetAllowFormats(false);
    grid->SetEnableUserAttributsTyps(~(DT_ColorARGB & ~DT_ColorRGB)); // colors of LandXML are opaque
    grid->SetErrorReporter(*this);
    grid->SetImageList(&RowIconPictures());
    grid->ModifyImageStyle(IS_AskParent, 0);
    return grid;
}

// The former document is let go of only when nothing can fail any more.
void GridPane::Show(OpenDocument& document, ReadingProgress* progress) {
    std::unique_ptr<AttributeGrid> grid = MakeGrid();
    grid->SetDocument(&document);
    grid->DivideAs(*m_grid); // the widths that the columns begin with
    Bind(*grid, document.Document(), progress);
    LetGo();
    m_grid = std::move(grid);
    m_document = &document;
    m_grid->MoveWindow(GetClientRect()); // it may be another one by now
    m_grid->ShowWindow(SW_SHOW);
    m_grid->DivideWidth(); // the rows may have brought a scroll bar
    Select(0);
    document.Extras().SetHooks(
        {[this](const std::string& text) { Copy(text); },
         [this](IMemberDispatch& object, const std::string& name) { OpenGroup(object, name); }});
}

// Most of the time that a large document takes goes into its rows, which the grid asks for in this thread.
void GridPane::Bind(AttributeGrid& grid, LandXmlDocument& document, ReadingProgress* progress) {
    PhaseProgress rows(progress, ReadingProgress::Phase::Rows, document.Tree().Count(), RowsAtOnce);
    std::exception_ptr failure;
    if (progress)
        document.SetReadHook([&](ElementIndex element) {
            try {
                rows.Reach(element);
            } catch (...) { // the grid would read it as a member that is missing
                failure = std::current_exception();
                grid.Clear();
            }
        });
    const std::unique_ptr<LandXmlDocument, void (*)(LandXmlDocument*)> unhook(
        &document, [](LandXmlDocument* read) { read->SetReadHook({}); });
    const ProgramTexts& texts = TheProgramTexts;
    grid.Initialize(&document.Root(), InCodePage(texts.name), InCodePage(texts.value), 0);
    if (failure)
        std::rethrow_exception(failure);
}

void GridPane::Clear() {
    LetGo();
    m_grid->Clear();
    m_grid->SetDocument(nullptr);
}

void GridPane::LetGo() {
    if (!m_document)
        return;
    m_document->Extras().Statistics().EndThreads();
    m_document->Extras().SetHooks({});
    m_document = nullptr;
}

IMemberDispatch* GridPane::SelectedObject() const {
    const grid::CTreeItem* node = m_grid->GetSelectedNode();
    return node ? m_grid->GetDispInterface(node) : nullptr;
}

std::string GridPane::SelectedName() const {
    const grid::CTreeItem* node = m_grid->GetSelectedNode();
    return node ? node->info->text : std::string();
}

std::string GridPane::SelectedText() const {
    return m_grid->GetItemText(m_grid->GetNextItem(-1, LVNI_SELECTED), 1);
}

RowAbilities GridPane::SelectedRow() const {
    IMemberDispatch* owner = SelectedObject();
    const IMemberDispatch* group = owner ? m_grid->GetSelectedNode()->info->disp : m_grid->GetRootDisp();
    RowAbilities row;
    if (const IMemberDispatch* taker = group ? group : owner)
        row.canAdd = taker->GetEditFlags() & EF_Add;
    if (!owner)
        return row;
    const std::string name = SelectedName();
    const std::uint32_t flags = owner->GetMemberFlags(name);
    row.canRemove = flags & MF_Delete;
    row.canRename = flags & (MF_Rename | MF_Change);
    row.canChangeType = flags & MF_ChangeType;
    row.canProtect = flags & MF_WriteProtect;
    row.isProtected = !owner->IsMemberEditable(name);
    return row;
}

void GridPane::Report(const std::string&, const std::string& message) {
    if (m_failureHook)
        m_failureHook(message);
}

void GridPane::Send(unsigned command) {
    m_grid->SendMessageA(WM_COMMAND, command, 0);
}

HWND GridPane::Field() const {
    const HWND focus = korvel::GetFocus();
    return focus && focus != m_grid->m_hWnd && IsChild(m_grid->m_hWnd, focus) ? focus : nullptr;
}

void GridPane::SendToField(unsigned command) {
    if (const HWND field = Field())
        korvel::SendMessageA(field, WM_COMMAND, command, 0);
}

void GridPane::Select(int row) {
    constexpr UINT Both = LVIS_SELECTED | LVIS_FOCUSED;
    m_grid->SetItemState(row, Both, Both);
}

bool GridPane::Expand(const std::string& path) {
    const ChildList* children = &m_grid->rootItems();
    int row = 0;
    int lastRow = 0;
    for (std::string_view rest = path; !rest.empty();) {
        grid::CTreeItem* node = FindStep(*children, rest);
        if (!node)
            return false;
        row = m_grid->RowOfNode(node);
        lastRow = m_grid->ExpandNode(node, row);
        children = &node->children();
        rest.remove_prefix(std::min(rest.size(), node->info->text.size() + 1));
    }
    m_grid->EnsureVisible(lastRow, false);
    m_grid->EnsureVisible(row, false);
    Select(row);
    return true;
}

void GridPane::Reveal(IMemberDispatch& object, const std::string& name) {
    grid::CTreeItem* node = m_grid->LookupTreeItem(&object, name);
    std::vector<grid::CTreeItem*> around;
    for (grid::CTreeItem* parent = node ? node->parent() : nullptr; parent; parent = parent->parent())
        around.push_back(parent);
    for (auto parent = around.rbegin(); parent != around.rend(); ++parent)
        if ((*parent)->collapsed() && m_grid->RowOfNode(*parent) >= 0)
            m_grid->ExpandNode(*parent, m_grid->RowOfNode(*parent));
    const int row = node ? m_grid->RowOfNode(node) : -1;
    if (row < 0)
        return;
    m_grid->EnsureVisible(row, false);
    Select(row);
}

void GridPane::OpenGroup(IMemberDispatch& object, const std::string& name) {
    Reveal(object, name);
    grid::CTreeItem* node = m_grid->LookupTreeItem(&object, name);
    if (!node || m_grid->RowOfNode(node) < 0)
        return;
    const int last = m_grid->ExpandNode(node, m_grid->RowOfNode(node));
    m_grid->EnsureVisible(last, false);
}

void GridPane::Copy(const std::string& text) {
    if (Display().SetClipboardText(text).IsSet())
        Notify(TheProgramTexts.copied);
    else
        Report({}, InCodePage(TheProgramTexts.notCopied));
}

void GridPane::Notify(const ProgramText& notice) {
    if (m_noticeHook)
        m_noticeHook(InCodePage(notice));
}

GridPane::Counts GridPane::Count() const {
    Counts counts;
    std::vector<const ChildList*> families = {&m_grid->rootItems()};
    while (!families.empty()) {
        const ChildList& family = *families.back();
        families.pop_back();
        for (const grid::CTreeItem* node : family) {
            if (node->info->disp && !dynamic_cast<const ElementObject*>(node->info->disp))
                continue; // added to the document
            ++(node->info->disp ? counts.objects : counts.members);
            if (!node->children().empty())
                families.push_back(&node->children());
        }
    }
    return counts;
}

bool GridPane::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) != GridCopied || lParam != reinterpret_cast<LPARAM>(m_grid->m_hWnd))
        return CWnd::OnCommand(wParam, lParam);
    Notify(TheProgramTexts.copied);
    return true;
}

LRESULT GridPane::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GET_IMAGEINDEX) {
        auto& question = *reinterpret_cast<ImageIndex*>(lParam);
        question.index = static_cast<int>(IconOf(*question.disp, *question.name));
        return 0;
    }
    if (m_document && m_document->Editing().OnMessage(message, wParam, lParam)) {
        PostMessageA(m_hWnd, FrameIsOver, 0, 0);
        return 0;
    }
    if (message == FrameIsOver && m_document)
        m_document->Editing().Settle();
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE && m_grid)
        m_grid->MoveWindow(GetClientRect());
    else if (message == WM_SETFOCUS)
        m_grid->SetFocus();
    return result;
}

} // namespace korvel::inspector
