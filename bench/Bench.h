#pragma once

#include <benchmark/benchmark.h>

#include "mrlxmlclass/session/Application.h"
#include "mrlxmlclass/tasks/TasksCol.h"

namespace mrlxmlclass::bench {

/// A folder for the files of a run, made at first use and removed at its end.
String ScratchPath(const String& name);

/// A session with a plan of that many tasks: phases of a hundred tasks each, all dated, named and costed.
Ref<Application> PlanOf(int tasks);
/// The path of that plan's file, written at first use.
String FileOf(int tasks);

/// Times loading that file; gives the session in which it was loaded.
Ref<Application> TimeLoading(benchmark::State& state, const String& path);

/// Bytes that the program holds of its heap.
std::size_t HeapInUse();

}  // namespace mrlxmlclass::bench
