#include <fmt/core.h>

#include <cstdio>

#include "prx/Command.h"
#include "prx/Refusal.h"
#include "prx/Terminal.h"

namespace {

using prx::Command;

int Run(int argc, char** argv) {
    CLI::App app("Plans in .prx files: start, show, change and check them.", "prx");
    app.set_version_flag("--version", "prx " PRX_VERSION);
    app.require_subcommand(1);
    prx::Commands commands;
    for (const auto make :
         {prx::MakeNew,      prx::MakeConvert,   prx::MakeImport,   prx::MakeShow,  prx::MakeAdd,    prx::MakeSet,
          prx::MakeRename,   prx::MakeMilestone, prx::MakeDone,     prx::MakeCost,  prx::MakeLink,   prx::MakeUnlink,
          prx::MakeIndent,   prx::MakeOutdent,   prx::MakeMove,     prx::MakePhase, prx::MakeShift,  prx::MakeRemove,
          prx::MakePerson,   prx::MakeGoal,      prx::MakeObstacle, prx::MakeNote,  prx::MakeAssign, prx::MakeUnassign,
          prx::MakeCalendar, prx::MakeCheck,     prx::MakeEdit}) {
        commands.push_back(make(app));
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? Command::kDone : Command::kRefused;
    }
    for (const auto& command : commands) {
        if (!command->chosen()) continue;
        if (command->opens_window()) prx::GoOnWithWindows(argv);
        prx::Host host;
        return command->Run(host);
    }
    return Command::kRefused;
}

int Tell(const char* what) {
    std::fprintf(stderr, "prx: %s\n", what);
    return Command::kRefused;
}

}  // namespace

/// The border of the process: whatever ends a command early is told in words.
int main(int argc, char** argv) {
    int status = Command::kRefused;
    try {
        status = Run(argc, argv);
    } catch (const prx::Refusal& refusal) {
        return Tell(refusal.what());
    } catch (const std::bad_alloc&) {
        return Tell("there is not enough memory");
    } catch (const std::exception& error) {
        return Tell(prx::Plain(error.what()).c_str());
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) return Tell("the output could not be written");
    return status;
}
