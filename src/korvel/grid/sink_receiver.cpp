#include "korvel/grid/sink_receiver.h"

#include "korvel/grid/editable_grid.h"
#include "korvel/grid/sink_delivery.h"

namespace korvel::internal {
namespace {

// 0, which is no kind, for a foreign code.
int KindOfCode(int code) {
    switch (code) {
    case SinkChange:
    case SinkAdd:
    case SinkRemove:
        return SPSV::Kind;
    case SinkRename:
        return SPSS::Kind;
    case SinkChangeIdent:
        return SSS::Kind;
    case SinkChangeType:
        return SPSEV::Kind;
    case SinkInsert:
        return SPNSV::Kind;
    case SinkChangePresentation:
        return SPS::Kind;
    case SinkChangeEditFlag:
        return SPSb::Kind;
    default:
        return 0;
    }
}

void RunWithValue(CEditableGrid& grid, IMemberDispatch* disp, const SPSV& record) {
    switch (record.code) {
    case SinkAdd:
        return grid.OnOperationAdd(disp, record.name, record.value);
    case SinkRemove:
        return grid.OnOperationRemove(disp, record.name, record.value);
    default:
        return grid.OnChange(disp, record.name, record.value);
    }
}

void Run(CEditableGrid& grid, IMemberDispatch* disp, const SNotifyOpenGLSink& any) {
    switch (any.GetKind()) {
    case SPSV::Kind:
        return RunWithValue(grid, disp, static_cast<const SPSV&>(any));
    case SPSS::Kind: {
        const auto& record = static_cast<const SPSS&>(any);
        return grid.OnOperationRename(disp, record.name, record.newName);
    }
    case SPSEV::Kind: {
        const auto& record = static_cast<const SPSEV&>(any);
        return grid.OnOperationChangeType(disp, record.name, record.type, record.value);
    }
    case SPNSV::Kind: {
        const auto& record = static_cast<const SPNSV&>(any);
        return grid.OnOperationInsert(disp, record.position, record.name, record.value);
    }
    case SPS::Kind:
        return grid.OnOperationChangeTupelPresentation(disp, static_cast<const SPS&>(any).name);
    case SPSb::Kind: {
        const auto& record = static_cast<const SPSb&>(any);
        return grid.OnChangeEditFlag(disp, record.name, record.flag);
    }
    default: // SSS: an object's own name is not shown
        return;
    }
}

} // namespace

LRESULT ReceiveSinkRecord(CEditableGrid& grid, LPARAM lParam) {
    auto* sent = reinterpret_cast<SNotifyOpenGLSink*>(lParam);
    const int kind = sent ? KindOfCode(sent->code) : 0;
    if (kind == 0 || sent->GetKind() != kind) // a record with a foreign code is not asked
        return 1;
    const OwnedSinkRecord record = SinkDelivery::Take(*sent);
    Run(grid, record->disp ? record->disp : grid.GetRootDisp(), *record);
    return 1;
}

} // namespace korvel::internal
