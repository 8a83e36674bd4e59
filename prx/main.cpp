#include <fmt/core.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string_view>
#include <system_error>

#include "prx/Command.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"

namespace {

using prx::Command;

struct NamedCommand {
    std::string_view name;
    std::unique_ptr<Command> (*make)(CLI::App&);
};
constexpr NamedCommand kCommands[] = {{"new", prx::MakeNew},           {"convert", prx::MakeConvert},
                                      {"import", prx::MakeImport},     {"show", prx::MakeShow},
                                      {"add", prx::MakeAdd},           {"set", prx::MakeSet},
                                      {"rename", prx::MakeRename},     {"milestone", prx::MakeMilestone},
                                      {"done", prx::MakeDone},         {"cost", prx::MakeCost},
                                      {"link", prx::MakeLink},         {"unlink", prx::MakeUnlink},
                                      {"indent", prx::MakeIndent},     {"outdent", prx::MakeOutdent},
                                      {"move", prx::MakeMove},         {"phase", prx::MakePhase},
                                      {"shift", prx::MakeShift},       {"remove", prx::MakeRemove},
                                      {"person", prx::MakePerson},     {"goal", prx::MakeGoal},
                                      {"obstacle", prx::MakeObstacle}, {"note", prx::MakeNote},
                                      {"assign", prx::MakeAssign},     {"unassign", prx::MakeUnassign},
                                      {"calendar", prx::MakeCalendar}, {"check", prx::MakeCheck},
                                      {"edit", prx::MakeEdit}};

/// The command that is named; all of them where none is. To make all takes longer than most of them run.
prx::Commands MakeCommands(CLI::App& app, std::string_view name) {
    const auto* const named = std::ranges::find(kCommands, name, &NamedCommand::name);
    prx::Commands commands;
    for (const NamedCommand& command : kCommands) {
        if (named == std::end(kCommands) || named == &command) commands.push_back(command.make(app));
    }
    return commands;
}

/// Refuses where the output did not get where it should; `more` says what was done all the same.
void DemandWritten(const std::string& more = {}) {
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        throw prx::Refusal("the output could not be written" + more);
    }
}

/// The parser would only say that a command is missing.
bool NamesNoCommand(const CLI::App& app, int argc, char** argv) {
    if (argc < 2 || argv[1][0] == '-') return false;
    return app.get_subcommands([&](const CLI::App* command) { return command->check_name(argv[1]); }).empty();
}

bool HasOnlyLetters(std::string_view text) {
    return std::ranges::all_of(text,
                               [](char c) { return c == '-' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

/// The parser would only say that a name is missing. Where the file is, a word with a dash is rather an option that
/// there is not.
bool TakenForAnOption(const CLI::App& app, const CLI::ParseError& error, int argc, char** argv) {
    if (error.get_name() != "RequiredError" || app.get_subcommands().empty()) return false;
    const bool file_is_missing = std::string_view(error.what()).starts_with("FILE ");
    const std::vector<std::string> unknown = app.remaining(/*recurse=*/true);
    return std::ranges::any_of(unknown,
                               [&](const std::string& text) {
                                   return text.starts_with('-') && !(file_is_missing && HasOnlyLetters(text));
                               }) ||
           std::ranges::count(argv, argv + argc, std::string_view("++")) > 0;
}

int Tell(const char* what) {
    std::fprintf(stderr, "prx: %s\n", what);
    return Command::kRefused;
}

int Run(int argc, char** argv) {
    CLI::App app("Plans in .prx files: start, show, change and check them.", "prx");
    app.set_version_flag("--version", "prx " PRX_VERSION);
    app.require_subcommand(1);
    const prx::Commands commands = MakeCommands(app, argc > 1 ? argv[1] : "");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (NamesNoCommand(app, argc, argv)) {
            throw prx::Refusal(
                fmt::format("there is no command \"{}\"; \"prx --help\" names them", prx::Plain(argv[1])));
        }
        const bool asked_for = app.exit(error) == 0;
        DemandWritten();
        if (asked_for) return Command::kDone;
        if (TakenForAnOption(app, error, argc, argv)) {
            Tell("a text that begins with a dash, or is \"++\", has to stand behind \"--\"");
        }
        return Command::kRefused;
    }
    for (const auto& command : commands) {
        if (!command->chosen()) continue;
        if (command->opens_window()) prx::GoOnWithWindows(argv);
        prx::Host host;
        int status = Command::kRefused;
        try {
            status = command->Run(host);
        } catch (const std::system_error&) {
            if (std::ferror(stdout) == 0) throw;  // else it was told of a full output, as is done here
        }
        DemandWritten(host.saved().empty() ? "" : ", but " + prx::Plain(host.saved()) + " was saved");
        return status;
    }
    return Command::kRefused;
}

}  // namespace

/// The border of the process: whatever ends a command early is told in words.
int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const prx::Refusal& refusal) {
        return Tell(refusal.what());
    } catch (const std::bad_alloc&) {
        return Tell("there is not enough memory");
    } catch (const std::exception& error) {
        return Tell(prx::Plain(error.what()).c_str());
    }
}
