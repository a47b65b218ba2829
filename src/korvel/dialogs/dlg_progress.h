#pragma once

#include "korvel/dialogs/observer.h"
#include "korvel/dialogs/observer_dlg_progress.h"
#include "korvel/window/controls/progress_ctrl.h"
#include "korvel/window/dialog/dialog.h"

#include <atomic>
#include <cstdint>
#include <memory>

namespace korvel {

namespace internal {
class ServingLock;
}

/// Shows how far long work has come, and lets the user cancel it.
///
///     CDlgProgress* progress = NewDlgProgress(0, &frame);
///     progress->m_Observers.insert(&observer);
///     CreateDlgProgress(progress, &frame);
///     std::atomic<bool> hasEnded = false;
///     std::thread worker([&] {
///         progress->SetRange(0, count);
///         for (int i = 0; i < count && !progress->IsCancelled(); ++i, progress->Step(1))
///             Read(i);
///         hasEnded = true;
///         ...                              // posts the frame a message
///     });
///     ...                                  // at that message:
///     ServeSendsUntil([&] { return hasEnded.load(); });
///     worker.join();
///     progress->Close();
///     DeleteDlgProgress(progress);
///
/// The functions below make and delete it, on the thread of its window. DoModal may show it instead of
/// CreateDlgProgress. Observers are put in before the first worker starts, or on the thread that calls
/// SetCancelled.
///
/// Any thread may call the operations, at any time: without a window they only keep the values, which the
/// window shows when it comes. With one, a setter returns after the window has followed. Its thread must
/// retrieve messages meanwhile or wait with ServeSendsUntil; while it waits for the dialog's lock, it runs
/// what workers send. Whoever deletes the dialog has ended the workers before.
///
/// Cancelling is the work's business: the button asks the user and sets IsCancelled, and the dialog stays
/// until it is closed. Escape does nothing. Kept: Return hides the dialog or ends DoModal, while the work goes
/// on, when the focus is not on the button.
class KORVEL_API CDlgProgress : public CDialog, public TObserver<IObserver_DlgProgress> {
public:
    std::intptr_t DoModal() override;
    BOOL OnInitDialog() override;
    /// Observers hear OnDlgDestroy first. Any thread.
    bool DestroyWindow() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PreSubclassWindow() override;

    /// Moves the position to `lower`. A range from a higher number down to a lower one shows an empty bar.
    virtual void SetRange(int lower, int upper);
    virtual void ClearText();
    /// SetPos(GetPos() + delta), beyond 32 bits going round. Kept: of two threads that do it at once, one may
    /// be lost.
    virtual void Step(int delta);
    /// Destroys the window; the values stay.
    virtual void Close();
    virtual bool IsCancelled() const;
    virtual int GetLower() const;
    virtual int GetUpper() const;
    /// As it was set: the bar alone is kept inside of the range.
    virtual int GetPos() const;
    virtual bool GetMarquee() const;
    virtual CString GetText() const;
    virtual int GetTemplateId() const;
    /// A change switches the button and the wait cursor, and observers hear of it.
    virtual void SetCancelled(bool cancelled);
    virtual void SetPos(int position);
    /// Instead of a position the bar shows that something goes on.
    virtual void SetMarquee(bool marquee);
    /// The line below the bar; it shows a text up to the first zero byte.
    virtual void SetText(CString text);

protected:
    /// For a class of a host's own, which makes and deletes its objects itself.
    CDlgProgress(std::uint32_t style, CWnd* parent);
    ~CDlgProgress() override;

    void OnOK() override;
    void OnCancel() override;
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    friend KORVEL_API CDlgProgress* NewDlgProgress(const unsigned long& style, CWnd* parent);
    friend KORVEL_API int DeleteDlgProgress(CDlgProgress* dialog);

    template <class Value>
    Value Read(const Value& field) const;
    template <class Value>
    bool Change(Value& field, const Value& value);
    void Tell(void (IObserver_DlgProgress::*operation)(CDlgProgress*));
    void TellDestroy();
    void AskToCancel();
    void ShowValues();
    void ShowRange();
    void ShowMarquee();
    void ShowText();
    void ShowCancelled();
    void ShowWaiting(bool isWaiting);

    const std::uint32_t m_style;
    int m_lower = 0;
    int m_upper = 100;
    int m_pos = 0;
    bool m_marquee = false;
    CString m_text;
    bool m_cancelled = false;
    const std::unique_ptr<internal::ServingLock> m_lock; // of the six fields above
    CProgressCtrl m_progressCtrl;
    std::atomic<HWND> m_window = nullptr; // the last one: m_hWnd is its thread's own
    bool m_isDestroyTold = false;         // the window's thread's own, like the next
    bool m_isWaiting = false;             // the wait cursor is on
};

/// A dialog without a window yet. `style`: bit 0 has the button start disabled. `parent` (may be null) is the
/// one of DoModal.
KORVEL_API CDlgProgress* NewDlgProgress(const unsigned long& style, CWnd* parent);
/// Makes and shows the modeless window. 0, and no window, when it cannot be made or there is one already; 0 for
/// null. What an observer throws in OnDlgInit comes out, and there is no window then.
KORVEL_API int CreateDlgProgress(CDlgProgress* dialog, CWnd* parent);
/// Deletes a dialog, and its window. 0 for null.
KORVEL_API int DeleteDlgProgress(CDlgProgress* dialog);

} // namespace korvel
