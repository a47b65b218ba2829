#include "korvel/values/member_dispatch.h"

namespace korvel {

std::uint32_t IMemberDispatch::GetMemberFlags(const std::string& name) {
    return m_pCommandSink ? m_pCommandSink->GetMemberFlags(name) : 0;
}

bool IMemberDispatch::OnRenameMember(const char*, const char*) {
    return false;
}
bool IMemberDispatch::OnRemoveMember(const char*) {
    return false;
}
bool IMemberDispatch::OnCommand(std::uint32_t) {
    return false;
}

bool IMemberDispatch::OnMemberCommand(const std::string& name, std::uint32_t id) {
    return m_pCommandSink && m_pCommandSink->OnMemberCommand(name, id);
}

void IMemberDispatch::GetCommands(std::list<SCommand>&) {}

void IMemberDispatch::GetMemberCommands(const std::string& name, std::list<SCommand>& commands) {
    if (m_pCommandSink)
        m_pCommandSink->GetMemberCommands(name, commands);
}

void IMemberDispatch::GetExtraCommands(std::list<SCommand>&) {}

void IMemberDispatch::GetMemberExtraCommands(const std::string& name, std::list<SCommand>& commands) {
    if (m_pCommandSink)
        m_pCommandSink->GetMemberExtraCommands(name, commands);
}

} // namespace korvel
