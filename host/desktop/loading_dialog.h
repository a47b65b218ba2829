#pragma once

#include "editing/checked_document.h"
#include "korvel/dialogs/dlg_progress.h"

#include <QElapsedTimer>
#include <QObject>
#include <chrono>
#include <exception>
#include <functional>
#include <future>
#include <optional>
#include <thread>

namespace korvel::inspector {

/// Reads a document in a thread of its own while the windows stay alive. Where that takes longer than
/// `patience`, the dialog shows how far it is, and the user may cancel; the window of its owner takes no
/// input then.
///
///     LoadingDialog loading(owner, windowRect);
///     loading.Run([&](ReadingProgress* progress) { return ReadAndCheck(path, options, observer, progress); },
///                 [&](CheckedDocument read, ReadingProgress* progress) { Show(read, progress); });
class LoadingDialog final : public CDlgProgress, private ReadingProgress {
public:
    /// Shorter loads show no dialog.
    static constexpr std::chrono::milliseconds Patience{150};
    /// It is shown in the middle of `over`, on the screen.
    LoadingDialog(CWnd& owner, const CRect& over, std::chrono::milliseconds patience = Patience);
    ~LoadingDialog() override;

    /// A window that takes no input either while the dialog is shown. It may go meanwhile.
    void AlsoDisable(HWND window) { m_alsoDisabled = window; }

    using Reader = std::function<CheckedDocument(ReadingProgress* progress)>;
    /// Shows what was read, on the thread of the windows; `progress` is null where the dialog is not shown.
    using Shower = std::function<void(CheckedDocument read, ReadingProgress* progress)>;
    /// False when the user has cancelled, or the application has ended meanwhile. What else `read` and `show`
    /// throw comes out, when all is closed again. Once.
    bool Run(const Reader& read, Shower show);

    BOOL OnInitDialog() override;

protected:
    /// The work goes on, whatever key is pressed.
    void OnOK() override {}
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    void OnProgress(Phase phase, std::size_t done, std::size_t whole) override;
    bool IsRead() const { return m_read.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }
    void StartThread(const Reader& read);
    void EndThread();
    /// In the event loop: shows what was read, and ends the dialog.
    void OnRead();
    void Show(ReadingProgress* progress);
    void EndAsking();

    const CRect m_over;
    const std::chrono::milliseconds m_patience;
    HWND m_alsoDisabled = nullptr;
    Shower m_show;
    std::thread m_thread;
    std::future<CheckedDocument> m_read;
    std::exception_ptr m_failure; // of the reading or the showing
    QObject m_events;             // what is posted to it ends with the dialog
    bool m_isAsking = false;      // whether to cancel
    bool m_isWaiting = false;     // what was read waits for that answer
    bool m_isShown = false;       // what was read, by the shower
    std::optional<Phase> m_phase;
    QElapsedTimer m_sinceEvents;
};

} // namespace korvel::inspector
