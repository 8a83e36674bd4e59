#pragma once

#include <vector>

#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/runtime/Ref.h"

/// Plans of version 3, as the component that can read them shows them. The library only asks; what fails on the way is
/// thrown, as a Failure or otherwise, and ends the conversion.
namespace mrlxmlclass {

/// A phase, or a task at any depth.
class OldTask : public Counted {
public:
    virtual String Name() = 0;
    virtual Date StartDate() = 0;  ///< 0: none
    virtual Date EndDate() = 0;
    virtual Boolean Completed() = 0;
    virtual String Note() = 0;
    /// The names of the people assigned.
    virtual std::vector<String> AssignedResource() = 0;
    virtual std::vector<Ref<OldTask>> Tasks() = 0;
};

/// Somebody, or something, with a list of tasks of its own; they may stand in the outline too, or nowhere else.
class OldPerson : public Counted {
public:
    virtual String Name() = 0;
    virtual std::vector<Ref<OldTask>> Tasks() = 0;
};

/// A goal or an obstacle.
class OldItem : public OldPerson {
public:
    virtual String Note() = 0;
};

class OldProject : public Counted {
public:
    virtual void Location(const String& path) = 0;
    virtual void Load(const String& path) = 0;
    virtual String Name() = 0;
    virtual std::vector<Ref<OldPerson>> People() = 0;
    virtual std::vector<Ref<OldTask>> Phases() = 0;
    virtual std::vector<Ref<OldItem>> goals() = 0;
    virtual std::vector<Ref<OldItem>> Obstacles() = 0;
};

class ProgressBar : public Counted {
public:
    virtual void Show() = 0;
    /// A step further, of 100.
    virtual void Update(Double step) = 0;
};

/// Makes the objects of the old component. The system has none: a host that can read such plans, or holds plans of
/// another kind that it can show this way, puts its own in place.
class OldPlans {
public:
    virtual ~OldPlans() = default;
    virtual Ref<ProgressBar> NewProgressBar() = 0;
    virtual Ref<OldProject> NewProject() = 0;
};

/// What stands where no component is: it fails (429) whatever is asked for.
OldPlans& NoOldPlans();

}  // namespace mrlxmlclass
