#include "desktop/loading_dialog.h"

#include "korvel/window/core/serve_sends.h"
#include "texts/program_texts.h"

#include <QCoreApplication>
#include <algorithm>
#include <memory>
#include <utility>

namespace korvel::inspector {
namespace {

constexpr int BetweenEvents = 20; // milliseconds, while the rows are made

// Of each phase: where it ends, and what is said. The shares are those of a terrain of 100 MB.
struct PhaseOfDialog {
    int end; // in thousandths of the whole
    const ProgramText* text;
};

constexpr int Whole = 1000;
constexpr PhaseOfDialog Phases[] = {
    {20, &TheProgramTexts.readingFile},
    {60, &TheProgramTexts.readingFile},
    {300, &TheProgramTexts.checkingValues},
    {Whole, &TheProgramTexts.fillingTable},
};

int PositionOf(ReadingProgress::Phase phase, std::size_t done, std::size_t whole) {
    const auto index = static_cast<std::size_t>(phase);
    const int begin = index == 0 ? 0 : Phases[index - 1].end;
    const double share =
        whole == 0 ? 1 : static_cast<double>(std::min(done, whole)) / static_cast<double>(whole);
    return begin + static_cast<int>(share * (Phases[index].end - begin));
}

} // namespace

LoadingDialog::LoadingDialog(CWnd& owner, const CRect& over, std::chrono::milliseconds patience)
    : CDlgProgress(0, &owner), m_over(over), m_patience(patience) {
    SetRange(0, Whole);
}

LoadingDialog::~LoadingDialog() {
    EndThread();
}

// The owner may never have been laid out, before the first document.
BOOL LoadingDialog::OnInitDialog() {
    const BOOL result = CDlgProgress::OnInitDialog();
    const CRect own = korvel::GetWindowRect(m_hWnd);
    MoveWindow(m_over.Centered({own.Width(), own.Height()}));
    return result;
}

bool LoadingDialog::Run(const Reader& read, Shower show) {
    m_show = std::move(show);
    StartThread(read);
    if (m_read.wait_for(m_patience) == std::future_status::ready) {
        EndThread();
        Show(nullptr);
    } else {
        korvel::EnableWindow(m_alsoDisabled, false);
        const auto enable = [](HWND window) { korvel::EnableWindow(window, true); };
        const std::unique_ptr<WindowTag, decltype(enable)> disabled(m_alsoDisabled, enable);
        DoModal();
        EndThread(); // where the application has ended, and the dialog with it
    }
    try {
        if (m_failure)
            std::rethrow_exception(m_failure);
    } catch (const ReadingCancelled&) {
        return false;
    }
    return m_isShown;
}

void LoadingDialog::StartThread(const Reader& read) {
    std::packaged_task<CheckedDocument()> task([this, read] { return read(this); });
    m_read = task.get_future();
    m_thread = std::thread([this, task = std::move(task)]() mutable {
        task();
        QMetaObject::invokeMethod(
            &m_events, [this] { OnRead(); }, Qt::QueuedConnection);
    });
}

// The thread sends what the dialog is to show. Where it has not read all, nobody wants the rest.
void LoadingDialog::EndThread() {
    if (!m_thread.joinable())
        return;
    if (!IsRead())
        SetCancelled(true);
    ServeSendsUntil([this] { return IsRead(); });
    m_thread.join();
}

void LoadingDialog::OnRead() {
    m_isWaiting = m_isAsking;
    if (m_isWaiting)
        return;
    EndThread();
    Show(this);
    EndDialog(IDOK);
}

void LoadingDialog::Show(ReadingProgress* progress) {
    try {
        m_show(m_read.get(), progress);
        m_isShown = true;
    } catch (...) {
        m_failure = std::current_exception();
    }
}

bool LoadingDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
    const bool isOutermost = !std::exchange(m_isAsking, true);
    const auto end = [&](LoadingDialog* dialog) {
        if (isOutermost)
            dialog->EndAsking();
    };
    const std::unique_ptr<LoadingDialog, decltype(end)> asking(this, end);
    return CDlgProgress::OnCommand(wParam, lParam);
}

void LoadingDialog::EndAsking() {
    m_isAsking = false;
    if (std::exchange(m_isWaiting, false))
        OnRead();
}

// Of the rows it is told in the thread of the windows, which goes on with its events here.
void LoadingDialog::OnProgress(Phase phase, std::size_t done, std::size_t whole) {
    if (std::exchange(m_phase, phase) != phase)
        SetText(InCodePage(*Phases[static_cast<std::size_t>(phase)].text));
    SetPos(PositionOf(phase, done, whole));
    if (phase == Phase::Rows && (!m_sinceEvents.isValid() || m_sinceEvents.hasExpired(BetweenEvents))) {
        QCoreApplication::processEvents();
        m_sinceEvents.start();
    }
    if (IsCancelled())
        throw ReadingCancelled();
}

} // namespace korvel::inspector
