#include "korvel/dialogs/dlg_progress.h"

#include "korvel/dialogs/dialog_ids.h"
#include "korvel/platform/first_failure.h"
#include "korvel/values/text_table.h"
#include "korvel/window/app/app.h"
#include "korvel/window/core/serving_lock.h"
#include "korvel/window/core/thread_queue.h"
#include "korvel/window/core/window_record.h"
#include "korvel/window/dialog/dialog_items.h"

#include <mutex>
#include <utility>

namespace korvel {

using namespace internal;

namespace {

constexpr std::uint32_t StartsWithoutCancel = 1; // of the style

// Rows of the Text table.
constexpr int CancelCaptionText = 92;
constexpr int CancelQuestionText = 93;

int SumOf(int position, int delta) {
    return static_cast<int>(static_cast<unsigned>(position) + static_cast<unsigned>(delta));
}

} // namespace

CDlgProgress* NewDlgProgress(const unsigned long& style, CWnd* parent) {
    const ModuleStateGuard library;
    return new CDlgProgress(static_cast<std::uint32_t>(style), parent);
}

int CreateDlgProgress(CDlgProgress* dialog, CWnd* parent) {
    const ModuleStateGuard library;
    return dialog && dialog->Create(ProgressTemplateId, parent);
}

int DeleteDlgProgress(CDlgProgress* dialog) {
    const ModuleStateGuard library;
    delete dialog;
    return dialog != nullptr;
}

CDlgProgress::CDlgProgress(std::uint32_t style, CWnd* parent)
    : CDialog(ProgressTemplateId, parent), m_style(style), m_lock(std::make_unique<ServingLock>()) {}

CDlgProgress::~CDlgProgress() {
    GuardedUntilRun([this] { CDlgProgress::DestroyWindow(); });
}

std::intptr_t CDlgProgress::DoModal() {
    return DoModalOfLibrary();
}

// --- values ---

template <class Value>
Value CDlgProgress::Read(const Value& field) const {
    const ModuleStateGuard library;
    const std::lock_guard lock(*m_lock);
    return field;
}

// False: it is the same.
template <class Value>
bool CDlgProgress::Change(Value& field, const Value& value) {
    const std::lock_guard lock(*m_lock);
    if (field == value)
        return false;
    field = value;
    return true;
}

bool CDlgProgress::IsCancelled() const {
    return Read(m_cancelled);
}

int CDlgProgress::GetLower() const {
    return Read(m_lower);
}

int CDlgProgress::GetUpper() const {
    return Read(m_upper);
}

int CDlgProgress::GetPos() const {
    return Read(m_pos);
}

bool CDlgProgress::GetMarquee() const {
    return Read(m_marquee);
}

CString CDlgProgress::GetText() const {
    return Read(m_text);
}

int CDlgProgress::GetTemplateId() const {
    return ProgressTemplateId;
}

void CDlgProgress::SetRange(int lower, int upper) {
    const ModuleStateGuard library;
    const std::lock_guard lock(*m_lock);
    m_lower = m_pos = lower;
    m_upper = upper;
    OnOwner(m_window, [this](WindowRecord&) { ShowRange(); });
}

void CDlgProgress::ClearText() {
    SetText({});
}

void CDlgProgress::Step(int delta) {
    SetPos(SumOf(GetPos(), delta));
}

// The window's thread reads the values that it shows: of two threads that change one, the last counts.
void CDlgProgress::SetPos(int position) {
    const ModuleStateGuard library;
    if (Change(m_pos, position))
        OnOwner(m_window, [this](WindowRecord&) { m_progressCtrl.SetPos(GetPos()); });
}

void CDlgProgress::SetMarquee(bool marquee) {
    const ModuleStateGuard library;
    if (Change(m_marquee, marquee))
        OnOwner(m_window, [this](WindowRecord&) { ShowMarquee(); });
}

void CDlgProgress::SetText(CString text) {
    const ModuleStateGuard library;
    if (Change(m_text, text))
        OnOwner(m_window, [this](WindowRecord&) { ShowText(); });
}

// All of it within the lock.
void CDlgProgress::SetCancelled(bool cancelled) {
    const ModuleStateGuard library;
    const std::lock_guard lock(*m_lock);
    if (!Change(m_cancelled, cancelled))
        return;
    FirstFailure failure;
    failure.Try([this] {
        OnOwner(
            m_window, [this](WindowRecord&) { ShowCancelled(); });
    });
    failure.Try([this] { Tell(&IObserver_DlgProgress::OnDlgCancelled); });
    failure.Rethrow();
}

// --- on the window's thread ---

void CDlgProgress::PreSubclassWindow() {
    CDialog::PreSubclassWindow();
    m_isDestroyTold = false;
    m_window = m_hWnd;
}

BOOL CDlgProgress::OnInitDialog() {
    const ModuleStateGuard library;
    CDialog::OnInitDialog();
    m_progressCtrl.SubclassDlgItem(ProgressBarId, this);
    ShowValues();
    if (m_style & StartsWithoutCancel)
        korvel::EnableWindow(korvel::GetDlgItem(m_hWnd, CancelProcessingId), false);
    Tell(&IObserver_DlgProgress::OnDlgInit);
    return 1;
}

// In one go: what a worker changes meanwhile is shown after it.
void CDlgProgress::ShowValues() {
    const std::lock_guard lock(*m_lock);
    ShowRange();
    ShowMarquee();
    ShowText();
    ShowCancelled();
}

void CDlgProgress::ShowRange() {
    m_progressCtrl.SetRange32(GetLower(), GetUpper());
    m_progressCtrl.SetPos(GetPos());
}

void CDlgProgress::ShowMarquee() {
    if (GetMarquee()) {
        m_progressCtrl.ModifyStyle(PBS_SMOOTH, PBS_MARQUEE);
        m_progressCtrl.SetMarquee(true);
    } else {
        m_progressCtrl.SetMarquee(false);
        m_progressCtrl.ModifyStyle(PBS_MARQUEE, PBS_SMOOTH);
    }
}

void CDlgProgress::ShowText() {
    korvel::SetDlgItemTextA(m_hWnd, ProgressStatusId, GetText());
}

void CDlgProgress::ShowCancelled() {
    const bool isCancelled = IsCancelled();
    ShowWaiting(isCancelled);
    korvel::EnableWindow(korvel::GetDlgItem(m_hWnd, CancelProcessingId), !isCancelled);
}

void CDlgProgress::ShowWaiting(bool isWaiting) {
    if (std::exchange(m_isWaiting, isWaiting) == isWaiting)
        return;
    if (isWaiting)
        BeginWaitCursor();
    else
        EndWaitCursor();
}

// An observer may change the set.
void CDlgProgress::Tell(void (IObserver_DlgProgress::*operation)(CDlgProgress*)) {
    FirstFailure failure;
    for (auto next = m_Observers.begin(); next != m_Observers.end();) {
        IObserver_DlgProgress* observer = *next;
        if (observer)
            failure.Try([&] { (observer->*operation)(this); });
        next = m_Observers.upper_bound(observer);
    }
    failure.Rethrow();
}

void CDlgProgress::TellDestroy() {
    const ModuleStateGuard library;
    if (!std::exchange(m_isDestroyTold, true))
        Tell(&IObserver_DlgProgress::OnDlgDestroy);
}

void CDlgProgress::Close() {
    DestroyWindow();
}

bool CDlgProgress::DestroyWindow() {
    const ModuleStateGuard library;
    return OnOwner(m_window, [this](const WindowRecord& record) {
        const HWND window = record.handle;
        if (m_isDestroyTold)
            return false; // it is going already
        bool isDestroyed = false;
        FirstFailure failure;
        failure.Try([this] { TellDestroy(); });
        failure.Try([&] { isDestroyed = korvel::DestroyWindow(window); });
        failure.Rethrow();
        return isDestroyed;
    });
}

LRESULT CDlgProgress::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETCURSOR && IsCancelled()) {
        RestoreWaitCursor();
        return 1;
    }
    FirstFailure failure;
    if (message == WM_DESTROY)
        failure.Try([this] { TellDestroy(); }); // a window that goes without DestroyWindow
    else if (message == WM_NCDESTROY)
        ShowWaiting(false); // a worker that has not ended yet is not waited for any more
    const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
    failure.Rethrow();
    return result;
}

bool CDlgProgress::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) != BN_CLICKED || LOWORD(wParam) != CancelProcessingId)
        return CDialog::OnCommand(wParam, lParam);
    AskToCancel();
    return true;
}

void CDlgProgress::AskToCancel() {
    const ModuleStateGuard library;
    if (!IsCancelled() && MessageBoxA(m_hWnd, Text(CancelQuestionText), Text(CancelCaptionText),
                                      MB_YESNO | MB_ICONQUESTION) == IDYES)
        SetCancelled(true);
}

// Return while the work goes on: kept.
void CDlgProgress::OnOK() {
    CDialog::OnOK();
}

void CDlgProgress::OnCancel() {}

} // namespace korvel
