#pragma once

#include <functional>
#include <utility>

#include "mrlxmlclass/platform/Services.h"

namespace mrlxmlclass::testing {

/// Anything of a plan of version 3 that has a name: a person, a phase, a task, a goal, an obstacle.
class OldRow {
public:
    explicit OldRow(String row_name) : name(std::move(row_name)) {}

    OldRow& From(Date first, Date last) {
        start = first;
        end = last;
        return *this;
    }
    OldRow& Done() {
        completed = True;
        return *this;
    }
    OldRow& Saying(const String& text) {
        note = text;
        return *this;
    }
    OldRow& By(std::vector<String> names) {
        people = std::move(names);
        return *this;
    }
    OldRow& With(std::vector<OldRow> rows) {
        tasks = std::move(rows);
        return *this;
    }

    String name;
    Date start;
    Date end;
    Boolean completed;
    String note;
    std::vector<String> people;
    std::vector<OldRow> tasks;
};

/// A plan of version 3, in place of the component as long as it stands:
///
///     OldPlan old;
///     old.phases = {OldRow("Phase").With({OldRow("Design").From(Monday, Friday)})};
class OldPlan {
public:
    OldPlan() = default;
    OldPlan(const OldPlan&) = delete;
    OldPlan& operator=(const OldPlan&) = delete;

    String name = "Old plan";
    std::vector<OldRow> people, phases, goals, obstacles;
    /// What the conversion asked of the project and the bar.
    std::vector<String> log;
    /// What reading the rows' list of tasks does besides; for tests of failures on the way.
    std::function<void(const String& row)> on_tasks;

private:
    /// A row as the component shows it, whatever it is.
    template <class Base>
    struct ShownRow : Base {
        ShownRow(OldPlan& of, const OldRow& shown) : plan(of), row(shown) {}
        String Name() override { return row.name; }
        std::vector<Ref<OldTask>> Tasks() override;
        OldPlan& plan;
        OldRow row;
    };
    struct ShownTask : ShownRow<OldTask> {
        using ShownRow::ShownRow;
        Date StartDate() override { return row.start; }
        Date EndDate() override { return row.end; }
        Boolean Completed() override { return row.completed; }
        String Note() override { return row.note; }
        std::vector<String> AssignedResource() override { return row.people; }
    };
    struct ShownItem : ShownRow<OldItem> {
        using ShownRow::ShownRow;
        String Note() override { return row.note; }
    };

    struct Project : OldProject {
        explicit Project(OldPlan& of) : plan(of) {}
        void Location(const String& path) override { plan.log.push_back("Location " + path); }
        void Load(const String& path) override { plan.log.push_back("Load " + path); }
        String Name() override { return plan.name; }
        std::vector<Ref<OldPerson>> People() override {
            return plan.ShowAs<OldPerson, ShownRow<OldPerson>>(plan.people);
        }
        std::vector<Ref<OldTask>> Phases() override { return plan.ShowAs<OldTask, ShownTask>(plan.phases); }
        std::vector<Ref<OldItem>> goals() override { return plan.ShowAs<OldItem, ShownItem>(plan.goals); }
        std::vector<Ref<OldItem>> Obstacles() override { return plan.ShowAs<OldItem, ShownItem>(plan.obstacles); }
        OldPlan& plan;
    };
    struct Bar : ProgressBar {
        explicit Bar(OldPlan& of) : plan(of) {}
        ~Bar() override { plan.log.push_back("gone"); }
        void Show() override { plan.log.push_back("Show"); }
        void Update(Double step) override { plan.log.push_back("Update " + std::to_string(step)); }
        OldPlan& plan;
    };
    struct Factory : OldPlans {
        explicit Factory(OldPlan& of) : plan(of) {}
        Ref<ProgressBar> NewProgressBar() override { return As<ProgressBar>(Make<Bar>(plan)); }
        Ref<OldProject> NewProject() override { return As<OldProject>(Make<Project>(plan)); }
        OldPlan& plan;
    };

    template <class Base, class Shown>
    static Ref<Base> As(const Ref<Shown>& shown) {
        return Ref<Base>(shown.get());
    }
    template <class Base, class Shown>
    std::vector<Ref<Base>> ShowAs(const std::vector<OldRow>& rows) {
        std::vector<Ref<Base>> shown;
        for (const OldRow& row : rows) shown.push_back(As<Base>(Make<Shown>(*this, row)));
        return shown;
    }

    Factory factory_{*this};
    Services services_{Platform().clock, Platform().locale, Platform().files,
                       Platform().shell, Platform().ui,     factory_};
    InstalledServices installed_{services_};
};

template <class Base>
std::vector<Ref<OldTask>> OldPlan::ShownRow<Base>::Tasks() {
    if (plan.on_tasks) plan.on_tasks(row.name);
    return plan.ShowAs<OldTask, ShownTask>(row.tasks);
}

}  // namespace mrlxmlclass::testing
