#include "korvel/qt/open_path.h"
#include "support/scratch.h"
#include "support/table.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QTextBrowser>
#include <QUrl>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace korvel::test {

namespace {

namespace fs = std::filesystem;

/// A desktop that opens files in a browser of this program; it has a portal for none, and says which kinds of
/// files it has programs for when it is told to.
class OpenPathTest : public testing::Test {
protected:
    OpenPathTest() {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), &browser, "setSource");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        qputenv("PATH", scratch.Path().c_str());
    }
    ~OpenPathTest() override {
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        qputenv("PATH", m_path);
        m_bus.isNull() ? qunsetenv("DBUS_SESSION_BUS_ADDRESS") : qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus);
    }

    fs::path Write(const char* name, const char* text, fs::perms more = fs::perms::none) const {
        fs::path file = scratch.Path() / name;
        std::ofstream(file) << text;
        fs::permissions(file, more, fs::perm_options::add);
        return file;
    }
    static QString Name(const fs::path& file) { return QString::fromStdString(file.string()); }
    /// The name of what was opened since.
    QString TakeOpened() {
        QString opened = QFileInfo(browser.source().toLocalFile()).fileName();
        browser.setSource(QUrl(QStringLiteral("file:///"))); // a name that is empty
        return opened;
    }

    const platform::ScratchFolder scratch;
    QTextBrowser browser;

private:
    const QByteArray m_path = qgetenv("PATH");
    const QByteArray m_bus = qgetenv("DBUS_SESSION_BUS_ADDRESS");
};

TEST_F(OpenPathTest, FilesAndFoldersAreOpenedAndWhatIsNotIsSaid) {
    const QString folder = Name(scratch.Path().filename());
    const fs::path plan = Write("plan.txt", "a plan");
    const fs::path program = Write("program.sh", "a plan", fs::perms::owner_exec);
    for (const auto& [border, file, as, result, opened] : Table<fs::path, OpenAs, int, QString>{
             {"a file", plan, OpenAs::File, 33, QStringLiteral("plan.txt")},
             {"a program is not run", program, OpenAs::File, 33, folder},
             {"nor by choice", program, OpenAs::FileByChoice, 33, folder},
             {"no chooser", plan, OpenAs::FileByChoice, 33, folder},
             {"the folder of a file", plan, OpenAs::Folder, 33, folder},
             {"a folder", scratch.Path(), OpenAs::Folder, 33, folder},
             {"a folder as a file", scratch.Path(), OpenAs::File, 33, folder},
             {"no such file", scratch.Path() / "none", OpenAs::File, SE_ERR_FNF, QString()},
             {"no such folder", scratch.Path() / "none", OpenAs::Folder, SE_ERR_FNF, QString()},
             {"a file as a folder", plan / "plan", OpenAs::File, SE_ERR_FNF, QString()}}) {
        EXPECT_EQ(internal::OpenOnDesktop(nullptr, Name(file), as), result) << border;
        EXPECT_EQ(TakeOpened(), opened) << border;
    }
}

TEST_F(OpenPathTest, TheDesktopSaysForWhichKindsItHasPrograms) {
    const QString plan = Name(Write("plan.csv", "a;b"));
    for (const auto& [border, answer, result] :
         Table<const char*, int>{{"none", "true", SE_ERR_NOASSOC},
                                 {"for files of this kind", "[ $3 = text/csv ] && echo sheet.desktop", 33},
                                 {"for texts", "[ $3 = text/plain ] && echo editor.desktop", 33}}) {
        Write("xdg-mime", (std::string("#!/bin/sh\n") + answer + "\n").c_str(), fs::perms::owner_exec);
        EXPECT_EQ(internal::OpenOnDesktop(nullptr, plan, OpenAs::File), result) << border;
    }
}

TEST_F(OpenPathTest, ProgramsAreKnownByPermissionNameAndContent) {
    for (const auto& [border, name, text, more, isProgram] : Table<const char*, const char*, fs::perms, bool>{
             {"a text", "a.txt", "text", fs::perms::none, false},
             {"a drawing", "a.dxf", "0\nSECTION\n", fs::perms::none, false},
             {"a text on a disk that knows no permissions", "b.txt", "text", fs::perms::all, false},
             {"a permission, and nothing else that tells", "b", "\x1\x2\x3", fs::perms::others_exec, true},
             {"data", "g", "\x1\x2\x3", fs::perms::none, false},
             {"a starter", "c.desktop", "", fs::perms::none, true},
             {"in capitals", "d.EXE", "", fs::perms::none, true},
             {"a script without a name", "e", "#!/bin/sh\n", fs::perms::none, true},
             {"an archive that is run", "f.jar", "", fs::perms::none, true}})
        EXPECT_EQ(internal::IsProgram(Name(Write(name, text, more))), isProgram) << border;
    EXPECT_FALSE(internal::IsProgram(Name(scratch.Path())));
}

} // namespace

} // namespace korvel::test
