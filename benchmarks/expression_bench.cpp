// From a fresh text to its value, against fparser and muParser; the parser objects are reused.

#include "korvel/parser/evaluate_expression.h"
#include "measure.h"

#include <fparser.hh>
#include <muParser.h>
#include <string>

namespace {

std::string LongExpression() {
    std::string text = "1";
    for (int i = 1; text.size() < 195; ++i)
        text += (i % 3 == 0 ? "*" : i % 3 == 1 ? "+" : "-") + std::string("(") + std::to_string(i) + ".5/2)";
    text.resize(text.rfind(')') + 1);
    while (text.size() < 200)
        text += text.size() % 2 == 0 ? "+1" : "*1";
    return text;
}

} // namespace

int main() {
    FunctionParser fparser;
    mu::Parser muparser;
    for (const std::string& text : {std::string("1+2*3"), std::string("(1.5+2)*3/4"), LongExpression()}) {
        const std::string operation = "expression " + (text.size() < 20 ? text : "of 200 characters");
        const auto write = [&](const char* subject, const std::function<void()>& call) {
            bench::Write(operation.c_str(), static_cast<long>(text.size()), subject, "ns",
                         bench::NanosecondsPerCall(call));
        };
        write("ours", [&] { bench::Keep(korvel::EvaluateExpression(".", text)); });
        write("fparser", [&] {
            fparser.Parse(text, "");
            bench::Keep(fparser.Eval(nullptr));
        });
        write("muParser", [&] {
            muparser.SetExpr(text);
            bench::Keep(muparser.Eval());
        });
    }
}
