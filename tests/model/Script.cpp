#include "tests/model/Script.h"

namespace mrlxmlclass::model {

String Written(const Script& script) {
    const auto word = [](bool value) { return value ? "true" : "false"; };
    String text = String("Script{.setting = {.links = ") + word(script.setting.links) +
                  ", .auto_link = " + word(script.setting.auto_link) + ", .silent = " + word(script.setting.silent) +
                  "},\n       .steps = {\n";
    for (const Step& step : script.steps) {
        text += "           {\"" + String(step.operation) + "\", " + std::to_string(step.task) + ", " +
                std::to_string(step.other) + ", " + std::to_string(step.number) + "},\n";
    }
    return text + "       }}\n";
}

}  // namespace mrlxmlclass::model
