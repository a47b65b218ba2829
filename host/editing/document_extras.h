#pragma once

#include "editing/surface_statistics.h"
#include "landxml/element_extras.h"

#include <functional>
#include <string>

namespace korvel::inspector {

/// What the inspector adds to the elements of a document: the stations of an alignment, the statistics of a
/// surface, and of every member its path and what the file holds, each for the clipboard.
class DocumentExtras final : public ElementExtras {
public:
    /// What a grid that shows the document does for them.
    struct Hooks {
        std::function<void(const std::string& text)> copy;
        /// Opens the rows of a group that is a member of an object.
        std::function<void(IMemberDispatch& object, const std::string& name)> open;
    };

    /// Both must outlive this.
    DocumentExtras(LandXmlDocument& document, EditObserver& observer);
    ~DocumentExtras();
    DocumentExtras(const DocumentExtras&) = delete;
    DocumentExtras& operator=(const DocumentExtras&) = delete;

    /// Without hooks the commands do nothing that needs them.
    void SetHooks(Hooks hooks) { m_hooks = std::move(hooks); }
    SurfaceStatistics& Statistics() { return m_statistics; }

    void ListCommands(ElementIndex element, std::list<SCommand>& commands) override;
    void ListMemberCommands(ElementIndex owner, const std::string& name,
                            std::list<SCommand>& commands) override;
    bool Run(ElementIndex element, std::uint32_t id) override;
    bool RunOnMember(ElementIndex owner, const std::string& name, std::uint32_t id) override;
    IMemberDispatch* AddedTo(ElementIndex element) override { return m_statistics.Find(element); }
    std::string NameOfAdded() const override { return SurfaceStatistics::Name(); }
    void RemoveAdded(ElementIndex element) override { m_statistics.Remove(element); }

private:
    void Copy(const std::string& text) const;
    std::string PathOf(ElementIndex owner, const std::string& name) const;
    std::string AsInFile(ElementIndex owner, const Member& member) const;

    LandXmlDocument& m_document;
    SurfaceStatistics m_statistics;
    Hooks m_hooks;
};

} // namespace korvel::inspector
