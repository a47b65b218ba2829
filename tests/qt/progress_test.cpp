#include "korvel/dialogs/dlg_progress.h"
#include "qt/users.h"
#include "support/control_fixture.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <atomic>
#include <thread>

namespace korvel::test {

namespace {

class PaintCounter : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

class Progress : public DesktopTest<CWnd> {
protected:
    ~Progress() override { DeleteDlgProgress(m_dialog); }

    CDlgProgress* const m_dialog = NewDlgProgress(0, &m_frame);
};

TEST_F(Progress, ValuesThatComeFasterThanFramesArePaintedOnceInEach) {
    constexpr int Values = 5000;
    constexpr qint64 LeastFrame = 15; // milliseconds, of clocks that are not quite even
    ASSERT_EQ(CreateDlgProgress(m_dialog, &m_frame), 1);
    auto& bar = *m_user.Widget(GetDlgItem(m_dialog->m_hWnd, 15037));
    auto& status = *m_user.Widget(GetDlgItem(m_dialog->m_hWnd, 15038));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(bar.window()));
    PaintCounter ofBar;
    PaintCounter ofStatus;
    bar.installEventFilter(&ofBar);
    status.installEventFilter(&ofStatus);
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    std::atomic<bool> hasEnded = false;
    std::thread worker([&] {
        for (int i = 1; i <= Values; ++i) {
            m_dialog->SetPos(i % 2 ? 100 : i % 100); // each one far from the one before
            m_dialog->SetText(std::to_string(i));
        }
        hasEnded = true;
    });
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (hasEnded)
            loop.quit();
    });
    poll.start(10);
    loop.exec();
    worker.join();
    const auto isShown = [&] { return static_cast<QLabel&>(status).text() == QString::number(Values); };
    EXPECT_TRUE(QTest::qWaitFor(isShown));
    EXPECT_EQ(static_cast<QProgressBar&>(bar).value(), 0);
    const auto frames = clock.elapsed() / LeastFrame + 2;
    for (const PaintCounter* counter : {&ofBar, &ofStatus}) {
        EXPECT_GT(counter->paints, 0);
        EXPECT_LE(counter->paints, frames);
    }
}

TEST_F(Progress, TheTitleHasNoBoxToCloseIt) {
    ASSERT_EQ(CreateDlgProgress(m_dialog, &m_frame), 1);
    const QWidget& shown = *m_user.Widget(m_dialog->m_hWnd);
    EXPECT_FALSE(shown.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_TRUE(shown.windowFlags().testFlag(Qt::WindowTitleHint));
}

} // namespace

} // namespace korvel::test
