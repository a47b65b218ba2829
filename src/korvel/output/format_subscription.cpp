#include "korvel/output/format_subscription.h"

namespace korvel {

void AddNumberFormatChangeSink(INumberFormatChanged*) {}
void RemoveNumberFormatChangeSink(INumberFormatChanged*) {}
void AddAngleFormatChangeSink(IAngleFormatChanged*) {}
void RemoveAngleFormatChangeSink(IAngleFormatChanged*) {}
void AddDateFormatChangeSink(IDateFormatChanged*) {}
void RemoveDateFormatChangeSink(IDateFormatChanged*) {}
void AddSinkNumber(INumberFormatChanged*) {}
void RemoveSinkNumber(INumberFormatChanged*) {}
void AddSinkAngle(IAngleFormatChanged*) {}
void RemoveSinkAngle(IAngleFormatChanged*) {}
void AddSinkDate(IDateFormatChanged*) {}
void RemoveSinkDate(IDateFormatChanged*) {}

bool UpdateNumber(IObserverGrid*) {
    return true;
}
bool UpdateAngle(IObserverGrid*) {
    return true;
}
bool UpdateDate(IObserverGrid*) {
    return true;
}

} // namespace korvel
