#pragma once

#include "editing/document_editing.h"
#include "editing/statistics_object.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace korvel::inspector {

/// The statistics of the surfaces of a document, for as long as they are of its current state. Each is
/// computed by a thread of its own from a copy of the surface, taken when it starts; the results are rows
/// of an object that is shown under the surface, and the thread says them through the sinks of the grids.
///
/// It belongs to the thread of the grids. A thread is ended before a grid lets go of the rows that it fills.
/// One whose own news a grid is being told waits for the grid, and nobody waits for it: it says nothing more,
/// and ends later.
class SurfaceStatistics {
public:
    /// Both must outlive this.
    SurfaceStatistics(LandXmlDocument& document, EditObserver& observer);
    ~SurfaceStatistics() { EndThreads(); }

    /// Takes the place of former ones. Throws Error where no thread can be started; there are none then.
    void Start(ElementIndex surface);
    void Remove(ElementIndex surface);
    /// Removes those whose surface or units have changed; true when there were any.
    bool Follow(const DocumentEditing::Changed& changed);
    /// Has the threads stop, and runs what they are sending until they have ended. What they have said stays.
    void EndThreads();

    StatisticsObject* Find(ElementIndex surface) const;
    static std::string Name();

    /// To be held while a grid is told of an object, which may be one of the statistics or not.
    class Telling {
    public:
        Telling(const SurfaceStatistics& statistics, const IMemberDispatch* object);
        ~Telling();
        Telling(const Telling&) = delete;
        Telling& operator=(const Telling&) = delete;

    private:
        int* const m_count; // null: of none of the statistics
    };

private:
    struct Run {
        explicit Run(const std::string& ident) : object(ident, [this] { End(*this); }) {}

        StatisticsObject object;
        int tellings = 0;                      // that are held
        std::vector<IObserverGridSink*> sinks; // of the object, while the thread runs
        std::atomic<bool> mustStop = false;
        std::atomic<bool> hasEnded = false;
        std::thread thread;
    };

    void TellSinks(ElementIndex surface, const std::function<void(IObserverGridSink&)>& tell);
    // What the threads send meanwhile may remove statistics.
    /// False: the thread waits for the caller.
    static bool End(Run& run);
    Run* FindRunning() const;
    /// Frees what was removed. Not while End runs.
    void FreeRemoved();

    LandXmlDocument& m_document;
    EditObserver& m_observer;
    std::map<ElementIndex, std::unique_ptr<Run>> m_runs;
    std::vector<std::unique_ptr<Run>> m_removed; // for whoever still waits for their threads
};

} // namespace korvel::inspector
