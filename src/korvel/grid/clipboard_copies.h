#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/grid/clipboard_texts.h"

#include <functional>
#include <string>

namespace korvel {
class CellEditGrid;
}

namespace korvel::internal {

class WriteFrame;

/// Puts rows of a grid on the clipboard, and tells the user that it did. Where an object throws, the user is
/// told that instead; then, and where rows go meanwhile, the clipboard stays as it is.
class ClipboardCopies {
public:
    /// All must outlive it.
    ClipboardCopies(CellEditGrid& grid, const AttributeRows& rows, AttributeTree& tree, WriteFrame& frame,
                    const GridOptions& options);

    const ClipboardTexts& Texts() const { return m_texts; }

    void CopyValue();
    void CopyColumn();
    void CopyRow();
    void CopyTree();
    /// True when the text is on the clipboard. Tells the user of a text that is refused, and nothing else.
    bool Put(const std::string& text) const;

private:
    void Copy(const std::function<bool(std::string&)>& collect) const;
    void TellCopied() const;

    CellEditGrid& m_grid;
    WriteFrame& m_frame;
    const GridOptions& m_options;
    ClipboardTexts m_texts;
};

} // namespace korvel::internal
