#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "mrlxmlclass/xml/ProjectsCls.h"
#include "tests/support/TimeLimit.h"
#include "tests/support/WholeProject.h"

namespace mrlxmlclass::testing {

/// What came of opening a file that somebody may have made to do harm.
struct Outcome {
    Boolean loaded;
    String recorded;  ///< by the load
};

/// Opens such files, and does with whatever was read what a host would do next: walks up and down the outline, saves,
/// loads again. Every case has its time.
class HostileFiles {
public:
    HostileFiles() { host_.app->xFileName(host_.platform.Path("evil.prx")); }
    ~HostileFiles() { host_.app->endreadonly(); }

    Outcome Open(const String& bytes, const char* what) {
        const TimeLimit limit(what);
        host_.platform.Write("evil.prx", bytes);
        return OpenIt();
    }
    /// The path itself, whatever is there.
    Outcome OpenIt() {
        Outcome outcome;
        host_.app->xFileName(host_.platform.Path("evil.prx"));
        outcome.loaded = host_.app->LoadXML();
        host_.app->endreadonly();
        outcome.recorded = host_.failures.Taken();
        Check(outcome);
        UseIt(outcome);
        return outcome;
    }

    Plan& host() { return host_; }
    TasksCol& tasks() { return host_.col(); }

    /// Ups and downs from every task; what these record is no surprise in an outline that is a ring.
    void WalkOutline() {
        for (const auto& entry : tasks().NewEnum()) {
            const String key = KeyText(entry.item->TaskKey()).text();
            tasks().GetLevel(key);
            tasks().GetTaskAndSubNumber(key);
            tasks().GetFirstLevelParentPosKey(key);
            tasks().GetLastParentPosKey(key, "1");
            tasks().CanbeLeveled(key, "1");
            tasks().AdjustSummary(key);
            tasks().AdjustCost(key);
        }
    }

private:
    /// A load is True for a well-formed file, and else False with an entry of its own.
    void Check(const Outcome& outcome) {
        const auto document = Make<dom::Document>();
        const bool well_formed = document->Load(host_.app->xFileName());
        EXPECT_EQ(bool(outcome.loaded), well_formed) << document->error_text();
        if (!well_formed) {
            EXPECT_TRUE(outcome.recorded.starts_with("ProjectsCls/FromXmlFile 91\n")) << outcome.recorded;
            EXPECT_TRUE(outcome.recorded.ends_with("Application/LoadXML 91\n")) << outcome.recorded;
            EXPECT_EQ(tasks().Count(True), 0);
        }
    }
    void UseIt(const Outcome& outcome) {
        WalkOutline();
        host_.app->xFileName(host_.platform.Path("copy.prx"));
        if (outcome.loaded) {
            const Long count = tasks().Count(True);
            EXPECT_EQ(host_.app->SaveXml(), True);
            EXPECT_EQ(host_.app->LoadXML(), True) << "what was saved opens again";
            EXPECT_EQ(tasks().Count(True), count);
        }
        host_.app->endreadonly();
        host_.failures.Taken();
    }

    Plan host_;
};

/// A plan of about 60 tasks over three levels, with items and links, as a file.
inline String PlanOfSixtyTasks() {
    WholeProject plan;
    for (int phase = 1; phase <= 6; ++phase) {
        const String name = "Phase " + std::to_string(phase);
        plan.Task(name).From(Monday + 7 * phase);
        for (int step = 1; step <= 8; ++step) {
            const String step_name = name + "." + std::to_string(step);
            plan.Task(step_name).Under(name).From(Monday + 7 * phase + step).Lasting(step);
            plan[step_name].TaskCost(Currency(100 * step));
            plan[step_name].TaskPercentDone(10 * step);
        }
    }
    EXPECT_EQ(plan.SaveAs("sixty.prx"), True);
    return plan.platform.Read("sixty.prx");
}

/// What the damage is done to: the plan above, and every example of a plan that comes with the library.
inline std::map<String, String> PlansToDamage() {
    std::map<String, String> plans{{"sixty tasks", PlanOfSixtyTasks()}};
    for (const auto& entry : std::filesystem::directory_iterator(MRLXMLCLASS_SOURCE_DIR "/examples")) {
        if (entry.path().extension() != ".prx") continue;
        plans[entry.path().filename().string()] = SystemServices().files.Read(entry.path().string());
    }
    return plans;
}

/// A project file around tasks.
inline String FileOfTasks(const String& tasks) {
    return "<?xml version=\"1.0\" ?><Project><ProjectID>1</ProjectID><DateFormat>M/d/yyyy</DateFormat>"
           "<Tasks scheduler=\"true\">" +
           tasks + "</Tasks></Project>";
}

/// One task as an element; a parent of 0 is left out.
inline String TaskText(const String& key, const String& parent, const String& row) {
    return "<Task><ProjectID>0</ProjectID>" + (parent == "0" ? String() : "<ParentID>" + parent + "</ParentID>") +
           "<TaskType>false</TaskType><TaskCondidat>true</TaskCondidat><TaskMilstones>false</TaskMilstones><TaskKey>" +
           key + "</TaskKey><TaskName>T" + key +
           "</TaskName><TaskBDate>3/2/2026</TaskBDate><TaskEDate>3/3/2026</TaskEDate><TaskDuration>2</TaskDuration>"
           "<TaskStatusKey>0</TaskStatusKey><TaskPosition>" +
           row + "</TaskPosition></Task>";
}

}  // namespace mrlxmlclass::testing
