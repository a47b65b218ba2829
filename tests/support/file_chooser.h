#pragma once

#include "korvel/values/file_value.h"

#include <functional>
#include <string>

namespace korvel {

/// A chooser of the host's.
struct FileChooser : IFileValue {
    bool IsAutoDestroy() const override { return m_bAutoDestroy; }
    const char* Choose(const char* path, CWnd*) override {
        asked = path;
        Call("choose");
        return chosen;
    }
    const std::uint32_t& GetFileType() const override { return Call("type"), type; }
    void SetFileType(std::uint32_t newType) override { type = newType; }

    std::string asked;
    const char* chosen = "b.xml";
    std::uint32_t type = 0;
    bool m_bAutoDestroy = false;
    std::function<void(const std::string& operation)> onCall;

private:
    void Call(const char* operation) const {
        if (onCall)
            onCall(operation);
    }
};

} // namespace korvel
