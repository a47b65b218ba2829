#include "korvel/grid/editable_grid_binding.h"

#include "korvel/grid/dispatch_sink.h"
#include "korvel/grid/member_reads.h"
#include "korvel/platform/first_failure.h"
#include "korvel/window/core/registered_messages.h"

#include <utility>

namespace korvel {

using namespace internal;

CEditableGrid::Binding::Binding(CEditableGrid& grid, IObserverGrid* observer)
    : m_grid(grid), rows(*this, observer, grid.m_Layout), columns(grid, rows.layout, grid.m_ColumnInfo),
      frame(grid, grid.m_pErrorReporter, grid.m_options), copies(grid, rows, *this, frame, grid.m_options),
      columnState(grid, rows, columns) {}

bool CEditableGrid::Binding::IsChecked(IMemberDispatch* disp, const std::string& name) {
    const LossWatch noLoss = rows.WatchRows();
    CVariantValue value;
    ReadMember(*disp, name, value);
    return noLoss &&
           ((value.Type == DT_Bool && value.Value.Bool) || m_grid.OnGetCheckState(disp, name, value));
}

grid::CTreeItem* CEditableGrid::Binding::LinkRow(CTreeItem* parent, std::unique_ptr<CItemInfo> info,
                                                 int position) {
    return m_grid.LinkNode(parent, std::move(info), position);
}

void CEditableGrid::Binding::OpenFile(const std::string& path) {
    m_grid.OpenFile(path);
}

void CEditableGrid::Binding::ChangeMany(const std::function<void()>& change) {
    const RedrawPause pause(m_grid);
    change();
}

void CEditableGrid::Binding::OnEnded() {
    FirstFailure failure;
    failure.Try([&] { m_grid.DeleteAllNodes(); });
    m_grid.Invalidate();
    failure.Try([&] { columns.Remove(); });
    failure.Rethrow();
}

int CEditableGrid::Binding::ChooseImage(int image, const std::string& name, IMemberDispatch* disp) {
    if (!(m_grid.m_ImageStyle & IS_AskParent))
        return image;
    ImageIndex question{image, &name, disp};
    korvel::SendMessageA(korvel::GetParent(m_grid.m_hWnd), WM_GET_IMAGEINDEX, 0,
                         reinterpret_cast<LPARAM>(&question));
    return question.index;
}

std::unique_ptr<IObserverGridSink> CEditableGrid::Binding::MakeSink(IMemberDispatch* disp) {
    return std::make_unique<IOpenGLDispatchSinkImp>(disp, window);
}

} // namespace korvel
