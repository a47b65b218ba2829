#pragma once

#include <QString>
#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace korvel::gallery {

/// Writes pictures of windows into a folder, and looks for texts that are cut off. A file of another program
/// stays: the picture takes the next free name.
///
///     Photographer photographer("shots", "german-dark-200");
///     photographer.TakeDialog("text", [] { dialog.DoModal(); });   // shots/text-german-dark-200.png
///
/// All operations throw Error when the picture cannot be written, and what their acts throw.
class Photographer {
public:
    using Act = std::function<void()>;

    Photographer(QString folder, QString suffix);

    /// `show` shows a dialog until it is closed, which this does when the picture is taken. `use` is done
    /// before that.
    void TakeDialog(const QString& name, const Act& show, const Act& use = {});
    /// The same, where `drop` opens what drops down.
    void TakeDropped(const QString& name, const Act& show, const Act& drop);
    /// A window that is shown already.
    void TakeWindow(const QString& name, QWidget& window);

    /// Texts that are cut off, dialogs that were not shown: a line each.
    const std::vector<std::string>& Faults() const { return m_faults; }
    /// Pictures that have another name than they should have: a line each.
    const std::vector<std::string>& Notices() const { return m_notices; }

private:
    enum class Shown { Dialog, Popup };

    void Take(const QString& name, const Act& show, const Act& use, Shown wanted);
    void Save(const QString& name, QWidget& window);

    QString m_folder;
    QString m_suffix;
    std::vector<std::string> m_faults;
    std::vector<std::string> m_notices;
};

} // namespace korvel::gallery
