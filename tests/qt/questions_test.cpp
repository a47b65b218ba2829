#include "korvel/qt/questions.h"
#include "support/scratch.h"
#include "support/table.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <fstream>
#include <gtest/gtest.h>

namespace korvel::test {

namespace {

struct Shown {
    QString name;
    QStringList filters;
    QString description; // of the filter in force
};

// What the chooser shows first; the user cancels it then.
Shown ShownFor(const FileQuery& query) {
    Shown shown;
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        shown = {dialog->findChild<QLineEdit*>()->text(), dialog->nameFilters(),
                 dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"))->currentText()};
        dialog->reject();
    });
    EXPECT_FALSE(internal::AskFile(nullptr, query));
    return shown;
}

TEST(FileChooser, BeginsWithTheNameOfTheFile) {
    const platform::ScratchFolder scratch;
    for (const auto& [border, path, name] : Table<std::string, QString>{
             {"in a folder", scratch.Path() / "plan.xml", QStringLiteral("plan.xml")},
             {"in no such folder", scratch.Path() / "none/plan.xml", QStringLiteral("plan.xml")},
             {"a folder alone", scratch.Path().string() + "/", QString()},
             {"nothing", "", QString()}}) {
        FileQuery query;
        query.open = false;
        query.path = path;
        EXPECT_EQ(ShownFor(query).name, name) << border;
    }
}

// What is chosen when the user types `name` and accepts.
std::optional<CString> ChosenFor(const FileQuery& query, const std::string& name) {
    const QObject call; // with which the timers end
    QTimer::singleShot(0, &call, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(name));
        QTimer::singleShot(0, &call, [] { // what the chooser itself refuses
            while (QWidget* shown = QApplication::activeModalWidget())
                shown->close();
        });
        QMetaObject::invokeMethod(dialog, "accept");
    });
    return internal::AskFile(nullptr, query);
}

TEST(FileChooser, AddsTheExtensionToAFileToOpenOnlyWhereThereIsNoSuchFile) {
    const platform::ScratchFolder scratch;
    for (const char* name : {"README", "plan.xml"})
        std::ofstream(scratch.Path() / name) << "x";
    enum Flag { Save = 0, Open = 1, MustExist = 3 };
    for (const auto& [border, flags, extension, typed, chosen] :
         Table<int, const char*, std::string, std::string>{
             {"there", MustExist, "xml", "README", "README"},
             {"there, and need not be", Open, "xml", "README", "README"},
             {"there with it", MustExist, "xml", "plan", "plan.xml"},
             {"not there", Open, ".xml", "new", "new.xml"},
             {"not there, and must be", MustExist, "xml", "new", "new.xml"},
             {"another extension", Open, "xml", "new.txt", "new.txt"},
             {"no extension", MustExist, "", "README", "README"},
             {"to save", Save, "xml", "README", "README.xml"}}) {
        FileQuery query;
        query.open = (flags & Open) != 0;
        query.fileMustExist = flags == MustExist;
        query.path = scratch.Path().string() + "/";
        query.defaultExtension = extension;
        EXPECT_EQ(ChosenFor(query, typed), CString(scratch.Path() / chosen)) << border;
    }
}

TEST(FileChooser, ShowsDescriptionsAsTheyAreAndTakesPatternsInEveryCase) {
    for (const auto& [border, filter, patterns, description] : Table<const char*, const char*, const char*>{
             {"with the patterns", "XML Files (*.xml)|*.xml|", "*.xml *.[xX][mM][lL]", "XML Files (*.xml)"},
             {"every file", "All Files  (*.*)|*.*|", "*", "All Files (*.*)"},
             {"two, and no letters", "Plans|*.x; *.1|", "*.x *.1 *.[xX]", "Plans"},
             {"a bracket of words", "Plans (old)|*.x|", "*.x *.[xX]", "Plans (old)"}}) {
        FileQuery query;
        query.filter = filter;
        const Shown shown = ShownFor(query);
        EXPECT_EQ(shown.filters, QStringList{QStringLiteral("%1 (%2)").arg(description, patterns)}) << border;
        EXPECT_EQ(shown.description, QString(description)) << border;
    }
}

TEST(MessageBox, FitsOnTheScreenWhateverItSays) {
    for (const std::string& text : {std::string(1 << 20, 'x'), std::string(1 << 20, '\n')}) {
        int height = 0;
        QTimer::singleShot(0, qApp, [&] {
            QWidget* box = QApplication::activeModalWidget();
            ASSERT_NE(box, nullptr);
            height = box->height();
            box->close();
        });
        internal::AskMessage(nullptr, text, "Korvel", MB_OK);
        EXPECT_GT(height, 0);
        EXPECT_LT(height, 1000);
    }
}

} // namespace

} // namespace korvel::test
