#include "desktop/loading_dialog.h"
#include "inspector/edited_window.h"
#include "korvel/output/angles.h"
#include "source/document_error.h"

#include <future>

namespace korvel::inspector {

namespace {

using namespace std::chrono_literals;
using Phase = ReadingProgress::Phase;

constexpr const char* Cancel = "Abbrechen"; // without the module of another language

QPushButton* ButtonOf(QWidget* window, const char* text) {
    for (auto* button : window ? window->findChildren<QPushButton*>() : QList<QPushButton*>())
        if (button->text().remove(u'&') == QLatin1String(text))
            return button;
    return nullptr;
}

// Does it as soon as it can be done.
void When(const std::function<bool()>& canBeDone, const std::function<void()>& action) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        if (!canBeDone())
            return;
        timer->deleteLater();
        timer->stop();
        action();
    });
    timer->start(5);
}

bool IsOnTop(const char* button) {
    return ButtonOf(QApplication::activeModalWidget(), button) != nullptr;
}

void Press(
    const char* button, const std::function<void()>& next = [] {}) {
    When([=] { return IsOnTop(button); },
         [=] {
             // What the press opens returns only when that is closed again.
             QTimer::singleShot(0, qApp, next);
             ButtonOf(QApplication::activeModalWidget(), button)->click();
         });
}

class LoadingTest : public EditedWindowTest {
protected:
    LoadingTest() : EditedWindowTest("<LandXML><Line name='a' length='1'/></LandXML>") {}

    // Reads until it is told that it may end, as from a slow disk.
    CheckedDocument ReadSlowly(ReadingProgress* progress) {
        for (std::size_t i = 0; m_end.wait_for(1ms) != std::future_status::ready; ++i)
            progress->OnProgress(Phase::Values, i % 10, 10);
        return ReadAndCheck(m_path, {}, m_window->Pane().Observer(), progress);
    }
    void LetEnd() { m_mayEnd.set_value(); }

    std::string Run(const LoadingDialog::Shower& show) {
        LoadingDialog dialog(m_window->Pane(), {0, 0, 600, 400});
        dialog.AlsoDisable(m_beside.m_hWnd);
        try {
            return dialog.Run([this](ReadingProgress* progress) { return ReadSlowly(progress); }, show)
                       ? "shown"
                       : "cancelled";
        } catch (const std::exception& error) {
            return error.what();
        }
    }

    CWnd m_beside;
    std::promise<void> m_mayEnd;
    std::shared_future<void> m_end = m_mayEnd.get_future().share();
};

TEST_F(LoadingTest, EndsAsTheUserAndTheDocumentSay) {
    m_beside.CreateEx(0, "KorvelFrame", "", WS_VISIBLE, {0, 0, 100, 100}, nullptr, 0);
    const auto fillRows = [&](CheckedDocument, ReadingProgress* progress) {
        EXPECT_FALSE(m_beside.IsWindowEnabled());
        for (int i = 0; i < 300; ++i) {
            progress->OnProgress(Phase::Rows, static_cast<std::size_t>(i), 300);
            QTest::qSleep(1);
        }
    };
    const struct {
        const char* border;
        std::function<void()> user;
        std::string result;
    } rows[] = {
        {"nothing happens", [&] { When([] { return IsOnTop(Cancel); }, [&] { LetEnd(); }); }, "shown"},
        {"cancelled", [&] { Press(Cancel, [] { Press("Yes"); }); }, "cancelled"},
        {"not cancelled after all", [&] { Press(Cancel, [&] { Press("No", [&] { LetEnd(); }); }); }, "shown"},
        {"the reading ends while the user is asked, who cancels",
         [&] { Press(Cancel, [&] { LetEnd(), QTimer::singleShot(100, qApp, [] { Press("Yes"); }); }); },
         "cancelled"},
        {"the reading ends while the user is asked, who goes on",
         [&] { Press(Cancel, [&] { LetEnd(), QTimer::singleShot(100, qApp, [] { Press("No"); }); }); },
         "shown"},
        {"cancelled while the rows are filled",
         [&] {
             When([] { return IsOnTop(Cancel); },
                  [&] {
                      LetEnd(), QTimer::singleShot(150, qApp, [] { Press(Cancel, [] { Press("Yes"); }); });
                  });
         },
         "cancelled"},
        {"Return and Escape",
         [&] {
             When([] { return IsOnTop(Cancel); },
                  [&] {
                      ButtonOf(QApplication::activeModalWidget(), Cancel)->clearFocus();
                      QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
                      QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
                      LetEnd();
                  });
         },
         "shown"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.border);
        m_mayEnd = {};
        m_end = m_mayEnd.get_future().share();
        row.user();
        EXPECT_EQ(Run(fillRows), row.result);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_TRUE(m_window->isEnabled());
        EXPECT_TRUE(m_beside.IsWindowEnabled());
    }
}

TEST_F(LoadingTest, PassesOnWhatFails) {
    Write("<LandXML>");
    When([] { return IsOnTop(Cancel); }, [&] { LetEnd(); });
    EXPECT_THAT(Run([](CheckedDocument, ReadingProgress*) { FAIL(); }), testing::HasSubstr("'LandXML'"));
    EXPECT_TRUE(m_window->isEnabled());
}

struct RowsHook final : ReadingProgress {
    std::function<void()> reached;
    void OnProgress(Phase phase, std::size_t, std::size_t) override {
        if (phase == Phase::Rows)
            reached();
    }
};

TEST_F(LoadingTest, ACancelAmongTheRowsLeavesTheFormerOnesAsTheyAre) {
    RowsHook progress;
    GridPane& pane = m_window->Pane();
    pane.Expand("Line a/length");
    const CEditableGrid* grid = &Grid();
    const CheckedDocument next = ReadAndCheck(m_path, {}, pane.Observer(), &progress);
    progress.reached = [] { throw ReadingCancelled(); };
    EXPECT_THROW(pane.Show(*next.document, &progress), ReadingCancelled);
    EXPECT_EQ(&Grid(), grid);
    EXPECT_EQ(pane.SelectedName(), "length");
    pane.SelectedObject()->OnMemberCommand("length", 1); // copies the path
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Line a/length"));
    Edit("length", "7");
    EditAction("Undo").trigger();
    EXPECT_EQ(ValueOf("length").substr(0, 1), "1");

    progress.reached = [this] { m_window->resize(700, 450), QApplication::processEvents(); };
    pane.Show(*next.document, &progress);
    EXPECT_NE(&Grid(), grid);
    EXPECT_EQ(Grid().GetItemCount(), 1);
    EXPECT_TRUE(Grid().IsWindowVisible());
    EXPECT_EQ(Grid().GetWindowRect().Width(), pane.GetClientRect().Width());
    pane.Clear();
}

TEST_F(LoadingTest, AnglesTakeTheUnitOfADocumentThatIsThere) {
    m_window = std::make_unique<InspectorWindow>(ReadingOptions{}, true);
    Write("<LandXML><Units><Metric angularUnit='grads' directionUnit='grads'/></Units><Line "
          "dir='50'/></LandXML>");
    m_window->Open(m_path);
    m_window->Pane().Expand("Line/dir");
    EXPECT_EQ(GetAngleUnit(), 'g');
    EXPECT_THAT(ValueOf("dir"), testing::HasSubstr("gon"));
    Write("<LandXML>");
    EXPECT_THROW(m_window->Open(m_path), DocumentError);
    EXPECT_EQ(GetAngleUnit(), 'g');
    SetAngleUnit('d');
}

TEST_F(LoadingTest, KeepsTheFormerDocumentWithItsChangesUntilTheNextIsThere) {
    std::string large = "<LandXML><Surface name='s'><Definition surfType='TIN'><Pnts>";
    for (int i = 1; i < 150'000; ++i)
        large += "<P id='" + std::to_string(i) + "'>1 2 3</P>";
    const std::string path = m_folder.Path() / "large.xml";
    std::ofstream(path, std::ios::binary) << large + "</Pnts></Definition></Surface></LandXML>";
    const std::string broken = m_folder.Path() / "broken.xml";
    std::ofstream(broken, std::ios::binary) << "<LandXML>";
    m_window->SetPatience(0ms);
    m_window->Pane().Expand("Line a/length");
    Edit("length", "7");
    const std::string length = ValueOf("length");

    Answer("Don’t Save");
    QTimer::singleShot(50, qApp, [] { Press("OK"); });
    EXPECT_FALSE(m_window->OpenOrWarn(broken));
    EXPECT_EQ(ValueOf("length"), length);

    Answer("Don’t Save");
    QTimer::singleShot(50, qApp, [] { Press(Cancel, [] { Press("Yes"); }); });
    EXPECT_FALSE(m_window->OpenOrWarn(path));
    EXPECT_EQ(ValueOf("length"), length);
    EXPECT_THAT(Messages(), testing::StartsWith("0 loading was cancelled\n"));

    EditAction("Undo").trigger();
    EXPECT_EQ(ValueOf("length").substr(0, 1), "1");
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_TRUE(m_window->OpenOrWarn(path));
    EXPECT_TRUE(m_window->Pane().Expand("Surface s"));
}

} // namespace

} // namespace korvel::inspector
