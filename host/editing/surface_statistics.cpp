#include "editing/surface_statistics.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/window/core/serve_sends.h"
#include "landxml/landxml_document.h"
#include "landxml/surface_figures.h"
#include "texts/messages.h"
#include "texts/program_texts.h"

#include <algorithm>
#include <chrono>
#include <system_error>

namespace korvel::inspector {
namespace {

constexpr std::chrono::milliseconds BetweenReports(100);

CVariantValue TextValue(std::string text) {
    CVariantValue value;
    value.Type = DT_String;
    value.Text = std::move(text);
    return value;
}

std::string PercentText(double part) {
    return std::to_string(static_cast<int>(part * 100)) + " %";
}

// A name and a value that lacks nothing but its number.
struct FigureRow {
    std::string name;
    CVariantValue value;

    CVariantValue With(double number) const {
        CVariantValue filled = value;
        if (value.Type == DT_Int)
            filled.Value.Int = static_cast<std::int32_t>(number);
        else
            filled.Value.Double = number;
        return filled;
    }
};

// The rows in the language of the process and the units of a surface: made before the thread starts, which
// reads neither.
struct FigureRows {
    FigureRows(const LandXmlDocument& document, ElementIndex surface) {
        const Unit& unit = document.Members().UnitsAt(surface).Of(Quantity::Length);
        const ProgramTexts& texts = TheProgramTexts;
        const std::string label = unit.isBase ? std::string() : unit.label;
        const char* squared = "\xB2";
        progress = InCodePage(texts.progress);
        const auto row = [&](const ProgramText& name, EDataTyps type, const std::string& itsUnit) {
            FigureRow made{InCodePage(name) + (itsUnit.empty() ? "" : " [" + itsUnit + "]"), {}};
            made.value.Type = type;
            return made;
        };
        const EDataTyps length = unit.isBase ? DT_LengthDouble : DT_Double;
        const EDataTyps area = unit.isBase ? DT_AreaDouble : DT_Double;
        const std::string areaLabel = label.empty() ? "" : label + squared;
        points = row(texts.points, DT_Int, {});
        faces = row(texts.faces, DT_Int, {});
        broken = row(texts.brokenFaces, DT_Int, {});
        planArea = row(texts.planArea, area, areaLabel);
        slopeArea = row(texts.slopeArea, area, areaLabel);
        lowest = row(texts.lowestPoint, length, label);
        highest = row(texts.highestPoint, length, label);
        failed = InCodePage(texts.cannotBeComputed);
    }

    std::string progress;
    FigureRow points, faces, broken, planArea, slopeArea, lowest, highest;
    std::string failed;
};

// What the thread says, one row at a time.
class Reporter {
public:
    Reporter(StatisticsObject& object, const std::vector<IObserverGridSink*>& sinks,
             const std::atomic<bool>& mustStop)
        : m_object(object), m_sinks(sinks), m_mustStop(mustStop) {}

    bool MustStop() const { return m_mustStop; }

    void Say(const std::string& name, const CVariantValue& value) const {
        if (m_mustStop)
            return;
        const bool isNew = m_object.Put(name, value);
        TellSinks([&](IObserverGridSink& sink) {
            if (isNew)
                sink.OnOperationAdd(name, value);
            else
                sink.OnChange(name, value);
        });
    }

    void Say(const FigureRow& row, double number) const { Say(row.name, row.With(number)); }
    void Say(const FigureRow& row, std::optional<double> number) const {
        if (number)
            Say(row, *number);
    }

    void TakeBack(const std::string& name) const {
        if (m_mustStop)
            return;
        m_object.Drop(name);
        TellSinks([&](IObserverGridSink& sink) { sink.OnOperationRemove(name, {}); });
    }

private:
    // None once the thread is to stop: the sinks may have gone during the call before.
    template <class Tell>
    void TellSinks(Tell tell) const {
        for (IObserverGridSink* sink : m_sinks) {
            if (m_mustStop)
                return;
            tell(*sink);
        }
    }

    StatisticsObject& m_object;
    const std::vector<IObserverGridSink*>& m_sinks;
    const std::atomic<bool>& m_mustStop;
};

void SayFigures(const Reporter& reporter, const FigureRows& rows, const SurfaceFigures& figures) {
    reporter.Say(rows.points, static_cast<double>(figures.points));
    reporter.Say(rows.faces, static_cast<double>(figures.faces));
    if (figures.broken > 0)
        reporter.Say(rows.broken, static_cast<double>(figures.broken));
    if (figures.faces > 0)
        reporter.Say(rows.planArea, figures.planArea);
    reporter.Say(rows.slopeArea, figures.area);
    reporter.Say(rows.lowest, figures.lowest);
    reporter.Say(rows.highest, figures.highest);
    reporter.TakeBack(rows.progress);
}

void ComputeAndSay(const Reporter& reporter, const FigureRows& rows, const std::string& surface) {
    using Clock = std::chrono::steady_clock;
    Clock::time_point last = Clock::now();
    const auto figures = MeasureSurface(surface, [&](double part) {
        if (Clock::now() - last >= BetweenReports) {
            reporter.Say(rows.progress, TextValue(PercentText(part)));
            last = Clock::now();
        }
        return !reporter.MustStop();
    });
    if (figures && !reporter.MustStop())
        SayFigures(reporter, rows, *figures);
}

// What the thread does: nothing may be thrown out of it.
void Compute(const Reporter& reporter, const FigureRows& rows, const std::string& surface) noexcept try {
    ComputeAndSay(reporter, rows, surface);
} catch (...) { // mostly for lack of memory
    try {
        reporter.Say(rows.progress, TextValue(rows.failed));
    } catch (...) { // the row stays as it is
    }
}

} // namespace

SurfaceStatistics::SurfaceStatistics(LandXmlDocument& document, EditObserver& observer)
    : m_document(document), m_observer(observer) {}

std::string SurfaceStatistics::Name() {
    return "[" + InCodePage(TheProgramTexts.statistics) + "]";
}

// Held by whoever refers to a run while others are called: none is freed meanwhile.
class SurfaceStatistics::Use {
public:
    explicit Use(SurfaceStatistics& statistics) : m_uses(statistics.m_uses) { ++m_uses; }
    ~Use() { --m_uses; }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    int& m_uses;
};

SurfaceStatistics::Run* SurfaceStatistics::FindRun(ElementIndex surface) const {
    const auto found = std::ranges::find_if(
        m_runs, [=](const auto& run) { return run->surface == surface && !run->isRemoved; });
    return found == m_runs.end() ? nullptr : found->get();
}

StatisticsObject* SurfaceStatistics::Find(ElementIndex surface) const {
    Run* run = FindRun(surface);
    return run ? &run->object : nullptr;
}

void SurfaceStatistics::TellSinks(ElementIndex surface, const std::function<void(IObserverGridSink&)>& tell) {
    m_observer.Tell(m_document.FindObject(surface), tell);
}

void SurfaceStatistics::Start(ElementIndex surface) {
    Remove(surface);
    FreeRemoved();
    const Use use(*this);
    Run& run = *m_runs.emplace_back(std::make_unique<Run>(*this, surface));
    try {
        StartThread(run);
    } catch (const std::system_error&) {
        Remove(surface);
        throw Error(InCodePage(TheProgramTexts.cannotBeComputed));
    } catch (...) {
        Remove(surface);
        throw;
    }
}

void SurfaceStatistics::StartThread(Run& run) {
    const FigureRows rows(m_document, run.surface);
    run.object.Put(rows.progress, TextValue(PercentText(0)));
    CVariantValue group;
    group.Type = DT_Group;
    group.Value.Dispatch = &run.object;
    TellSinks(run.surface, [&](IObserverGridSink& sink) {
        if (!run.isRemoved)
            sink.OnOperationAdd(Name(), group);
    });
    if (run.isRemoved) // the new row has ended an edit that changed the surface
        return;
    run.sinks = m_observer.SinksOf(&run.object);
    run.thread = std::thread([&run, rows, text = m_document.Tree().EditedText(run.surface)] {
        Compute(Reporter(run.object, run.sinks, run.mustStop), rows, text);
        run.hasEnded = true;
    });
}

void SurfaceStatistics::End(Run& run) {
    const Use use(*this);
    run.mustStop = true;
    if (!run.thread.joinable() || run.tellings > 0)
        return;
    ServeSendsUntil([&] { return run.hasEnded.load(); });
    if (run.thread.joinable()) // not ended by what it sent
        run.thread.join();
}

void SurfaceStatistics::EndThreads() {
    for (const auto& run : m_runs)
        run->mustStop = true;
    for (std::size_t i = 0; i < m_runs.size(); ++i) // there may be more meanwhile
        End(*m_runs[i]);
    FreeRemoved();
}

void SurfaceStatistics::FreeRemoved() {
    if (m_uses > 0)
        return;
    std::erase_if(m_runs, [](const auto& run) {
        const bool isFree = run->isRemoved && (run->hasEnded || !run->thread.joinable());
        if (isFree && run->thread.joinable())
            run->thread.join(); // it says nothing more
        return isFree;
    });
}

SurfaceStatistics::Telling::Telling(const SurfaceStatistics& statistics, const IMemberDispatch* object)
    : m_count([&] {
          const auto told = std::ranges::find_if(statistics.m_runs,
                                                 [=](const auto& run) { return &run->object == object; });
          return told == statistics.m_runs.end() ? nullptr : &(*told)->tellings;
      }()) {
    if (m_count)
        ++*m_count;
}

SurfaceStatistics::Telling::~Telling() {
    if (m_count)
        --*m_count;
}

void SurfaceStatistics::Remove(ElementIndex surface) {
    Run* run = FindRun(surface);
    if (!run)
        return;
    const Use use(*this);
    run->isRemoved = true;
    End(*run);
    TellSinks(surface, [](IObserverGridSink& sink) { sink.OnOperationRemove(Name(), {}); });
}

bool SurfaceStatistics::Follow(const DocumentEditing::Changed& changed) {
    const auto isOf = [&](ElementIndex surface) {
        return std::ranges::any_of(changed.elements, [&](ElementIndex element) {
            return element >= surface && element < m_document.Tree().SubtreeEnd(surface);
        });
    };
    std::vector<ElementIndex> old;
    for (const auto& run : m_runs)
        if (!run->isRemoved && (changed.units || isOf(run->surface)))
            old.push_back(run->surface);
    for (const ElementIndex surface : old)
        Remove(surface);
    return !old.empty();
}

} // namespace korvel::inspector
