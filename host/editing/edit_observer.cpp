#include "editing/edit_observer.h"

#include "editing/statistics_object.h"
#include "korvel/platform/first_failure.h"

#include <algorithm>
#include <utility>

namespace korvel::inspector {
namespace {

// A grid says one or two values in a frame; without frames nobody takes them.
constexpr std::size_t MostSaidValues = 16;

} // namespace

std::vector<const IMemberDispatch*> EditObserver::ShownObjects() const {
    std::vector<const IMemberDispatch*> objects;
    for (const auto& shown : m_sinks)
        if (objects.empty() || objects.back() != shown.first) // those of one object are neighbors
            objects.push_back(shown.first);
    return objects;
}

std::vector<IObserverGridSink*> EditObserver::SinksOf(const IMemberDispatch* object) const {
    std::vector<IObserverGridSink*> sinks;
    const auto [begin, end] = m_sinks.equal_range(object);
    for (auto shown = begin; shown != end; ++shown)
        sinks.push_back(shown->second);
    return sinks;
}

bool EditObserver::HasSink(const IMemberDispatch* object, const IObserverGridSink* sink) const {
    const auto [begin, end] = m_sinks.equal_range(object);
    return std::any_of(begin, end, [&](const auto& shown) { return shown.second == sink; });
}

void EditObserver::Tell(const IMemberDispatch* object, const std::function<void(IObserverGridSink&)>& tell) {
    internal::FirstFailure failure;
    for (IObserverGridSink* sink : SinksOf(object))
        if (HasSink(object, sink))
            failure.Try([&] { tell(*sink); });
    failure.Rethrow();
}

std::vector<EditObserver::SaidValue> EditObserver::TakeSaidValues() {
    return std::exchange(m_said, {});
}

void EditObserver::AddSink(IMemberDispatch* disp, IObserverGridSink* sink) {
    if (disp && sink && !HasSink(disp, sink))
        m_sinks.emplace(disp, sink);
}

void EditObserver::RemoveSink(IMemberDispatch* disp, IObserverGridSink* sink) {
    if (const auto* statistics = dynamic_cast<const StatisticsObject*>(disp))
        statistics->EndThread();
    const auto [begin, end] = m_sinks.equal_range(disp);
    const auto found = std::find_if(begin, end, [&](const auto& shown) { return shown.second == sink; });
    if (found != end)
        m_sinks.erase(found);
    std::erase_if(m_said, [&](const SaidValue& said) { return said.object == disp; });
}

void EditObserver::OnChange(IMemberDispatch* disp, void*, const std::string& name,
                            const CVariantValue& value) {
    if (m_said.size() == MostSaidValues)
        m_said.erase(m_said.begin());
    m_said.push_back({disp, name, value});
    Tell(disp, [&](IObserverGridSink& sink) { sink.OnChange(name, value); });
}

} // namespace korvel::inspector
