#pragma once

#include <gtest/gtest.h>

#include "mrlxmlclass/tasks/TasksCls.h"

namespace mrlxmlclass::testing {

/// The text of a task around what stands behind its name.
inline String TaskWith(const String& rest) {
    return "<Task><ProjectID>3</ProjectID><ParentID>2</ParentID><TaskType>true</TaskType>"
           "<TaskCondidat>false</TaskCondidat><TaskMilstones>true</TaskMilstones><TaskKey>7</TaskKey>"
           "<TaskName>Seven</TaskName>" +
           rest + "</Task>";
}

inline Ref<TasksCls> Read(const String& text, Boolean for_lib = False) {
    auto task = Make<TasksCls>();
    EXPECT_EQ(task->FromXml(text, {}, for_lib), True);
    return task;
}

}  // namespace mrlxmlclass::testing
