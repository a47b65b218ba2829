#pragma once

#include "editing/document_editing.h"
#include "editing/statistics_object.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace korvel::inspector {

/// The statistics of the surfaces of a document, for as long as they are of its current state. Each is
/// computed by a thread of its own from a copy of the surface, taken when it starts; the results are rows
/// of an object that is shown under the surface, and the thread says them through the sinks of the grids.
///
/// It belongs to the thread of the grids. A thread is ended before a grid lets go of the rows that it fills;
/// but one whose news a grid is handling waits for that grid, and cannot be waited for: it is told to stop,
/// tells nothing more, and is joined later.
class SurfaceStatistics {
public:
    /// Both must outlive this.
    SurfaceStatistics(LandXmlDocument& document, EditObserver& observer);
    /// Not while a Telling is held.
    ~SurfaceStatistics() { EndThreads(); }

    /// Takes the place of former ones. Throws Error where no thread can be started; there are none then.
    void Start(ElementIndex surface);
    void Remove(ElementIndex surface);
    /// Removes those whose surface or units have changed; true when there were any.
    bool Follow(const DocumentEditing::Changed& changed);
    /// Has the threads stop, and runs what they are sending until they have ended, but for those whose news is
    /// being handled. What they have said stays.
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
        Run(SurfaceStatistics& all, ElementIndex itsSurface)
            : surface(itsSurface), object(Name(), [this, &all] { all.End(*this); }) {}

        const ElementIndex surface;
        StatisticsObject object;
        bool isRemoved = false;
        int tellings = 0;                      // that are held
        std::vector<IObserverGridSink*> sinks; // of the object, while the thread runs
        std::atomic<bool> mustStop = false;
        std::atomic<bool> hasEnded = false;
        std::thread thread;
    };
    class Use;

    Run* FindRun(ElementIndex surface) const;
    void TellSinks(ElementIndex surface, const std::function<void(IObserverGridSink&)>& tell);
    void StartThread(Run& run);
    /// Has a thread stop and waits for it, unless its news is being handled. What threads send meanwhile may
    /// remove statistics.
    void End(Run& run);
    void FreeRemoved();

    LandXmlDocument& m_document;
    EditObserver& m_observer;
    std::vector<std::unique_ptr<Run>> m_runs; // removed ones until they are in no use
    int m_uses = 0;
};

} // namespace korvel::inspector
