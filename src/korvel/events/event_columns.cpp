#include "korvel/events/event_columns.h"

#include "korvel/values/text_table.h"

namespace korvel::internal {

namespace {

constexpr int FirstNameOfType = 24; // Text ids, in the order of the types

const char* NameOf(CEventMessage::EEventType type) {
    const bool isKnown = type >= CEventMessage::eInformation && type <= CEventMessage::eException;
    return isKnown ? Text(FirstNameOfType + type) : "??";
}

} // namespace

std::string_view EventCellText(const CEventMessage& message, const EventColumn& column) {
    if (!column.text)
        return NameOf(message.m_Type);
    return message.*column.text;
}

} // namespace korvel::internal
