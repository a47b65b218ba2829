#pragma once

#include "korvel/documents/xml_error.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace korvel {

/// A document that must be refused, at a place and for a reason, part of which is enough.
struct XmlRefusal {
    const char* name;
    std::string document;
    std::size_t line;
    std::size_t position;
    const char* reason;
};

/// Lets `read` take each document and expects its XmlError.
template <class Read>
void ExpectRefusals(const std::vector<XmlRefusal>& rows, Read read) {
    for (const XmlRefusal& row : rows) {
        SCOPED_TRACE(row.name);
        try {
            read(row.document);
            ADD_FAILURE() << "was read";
        } catch (const XmlError& error) {
            EXPECT_THAT(error.Reason(), testing::HasSubstr(row.reason));
            EXPECT_EQ(std::to_string(error.Place().line) + ":" + std::to_string(error.Place().position),
                      std::to_string(row.line) + ":" + std::to_string(row.position));
        }
    }
}

} // namespace korvel
