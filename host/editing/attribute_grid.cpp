#include "editing/attribute_grid.h"

#include "korvel/grid/sink_records.h"
#include "korvel/platform/error.h"
#include "korvel/platform/settings_store.h"
#include "korvel/window/core/registered_messages.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace korvel::inspector {

namespace {

constexpr double SmallestShare = 0.1;               // of a column
enum StateEvent : unsigned { Read = 0, Write = 1 }; // of WM_DLG_STATE_REGISTRY

struct MemberRef {
    IMemberDispatch* object = nullptr;
    std::string name;
};

// The member whose kind may be another one after what a grid is told; none where it is not.
MemberRef MemberOf(const SNotifyOpenGLSink& news) {
    switch (news.code) {
    case SinkChange:
        return {news.disp, static_cast<const SPSV&>(news).name};
    case SinkRename:
        return {news.disp, static_cast<const SPSS&>(news).newName};
    case SinkChangeType:
        return {news.disp, static_cast<const SPSEV&>(news).name};
    default:
        return {};
    }
}

} // namespace

LRESULT AttributeGrid::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    std::optional<SurfaceStatistics::Telling> telling;
    MemberRef changed;
    const auto* news =
        reinterpret_cast<const SNotifyOpenGLSink*>(message == WM_OPENGLSINK_NOTIFICATION ? lParam : 0);
    if (news && m_document) {
        telling.emplace(m_document->Extras().Statistics(), news->disp);
        changed = MemberOf(*news); // the grid frees the news
    }
    const LRESULT result = CEditableGrid::WindowProc(message, wParam, lParam);
    if (changed.object)
        FollowIcon(*changed.object, changed.name);
    const bool dragged = message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == HDN_ENDTRACK;
    const int width = GetClientRect().Width();
    if (dragged) { // the columns themselves were divided again if the drag has brought a scroll bar
        const auto* end = reinterpret_cast<const NMHEADER*>(lParam);
        TakeShare(end->iItem == 0 ? end->cxy : GetColumnWidth(0), width);
    }
    if (dragged || (message == WM_SIZE && width != m_dividedWidth))
        DivideWidth();
    return result;
}

void AttributeGrid::FollowIcon(IMemberDispatch& object, const std::string& name) {
    const grid::CTreeItem* node = LookupTreeItem(&object, name);
    if (!node)
        return;
    ImageIndex question{node->info->image, &name, &object};
    korvel::SendMessageA(korvel::GetParent(m_hWnd), WM_GET_IMAGEINDEX, 0,
                         reinterpret_cast<LPARAM>(&question));
    if (question.index == node->info->image)
        return;
    node->info->image = question.index;
    RedrawRow(RowOfNode(node));
}

void AttributeGrid::TakeShare(int name, int width) {
    if (width > 0)
        m_nameShare = std::clamp(static_cast<double>(name) / width, SmallestShare, 1 - SmallestShare);
}

void AttributeGrid::SendState(unsigned event, const std::string& key) try {
    if (event == Write) // the grid makes no key
        platform::CreateKey(platform::SettingsRoot::User, key);
    SendMessageA(WM_DLG_STATE_REGISTRY, event, reinterpret_cast<LPARAM>(key.c_str()));
} catch (const Error&) {
    // a store that fails leaves the columns as they are
}

void AttributeGrid::KeepColumns(const std::string& key) {
    SetColumnInfo({{0, GetColumnWidth(0)}, {1, GetColumnWidth(1)}});
    SendState(Write, key);
}

void AttributeGrid::RestoreColumns(const std::string& key) {
    SendState(Read, key);
    TakeShare(GetColumnWidth(0), GetColumnWidth(0) + GetColumnWidth(1));
    DivideWidth();
}

void AttributeGrid::DivideWidth() {
    const int width = GetClientRect().Width();
    const int name = static_cast<int>(std::lround(width * m_nameShare));
    m_dividedWidth = width;
    if (GetColumnCount() != 2) {
        SetColumnInfo({{0, name}, {1, width - name}});
        return;
    }
    SetColumnWidth(0, name);
    SetColumnWidth(1, width - name);
}

void AttributeGrid::DivideAs(const AttributeGrid& other) {
    m_nameShare = other.m_nameShare;
    DivideWidth();
}

CString AttributeGrid::Absolute(const CString& path) const {
    return m_document ? CString(m_document->FileChooser().Absolute(path)) : path;
}

} // namespace korvel::inspector
