#include "mrlxmlclass/runtime/EventSource.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace mrlxmlclass {
namespace {

class Events {
public:
    virtual ~Events() = default;
    virtual void Changed(int) {}
    virtual void Named(const std::string&, int) {}
};

/// Writes down who heard what, then acts.
struct Listener : Events {
    Listener(std::string its_name, std::string& notes) : name(std::move(its_name)), heard(notes) {}
    void Changed(int value) override {
        heard += name + std::to_string(value) + " ";
        if (act) act(value);
    }
    void Named(const std::string& text, int value) override { heard += name + text + std::to_string(value) + " "; }

    std::string name;
    std::string& heard;
    std::function<void(int)> act;
};

struct EventSourceTest : testing::Test {
    std::string Heard() { return std::exchange(heard, ""); }
    void Raise(int value) { source.Raise(&Events::Changed, value); }

    std::string heard;
    EventSource<Events> source;
    Listener a{"a", heard}, b{"b", heard}, c{"c", heard};
};

TEST_F(EventSourceTest, TellsItsListenersInTheOrderInWhichTheyCame) {
    Raise(0);
    source.Add(b);
    source.Add(a);
    Raise(1);
    source.Raise(&Events::Named, "x", 2);
    EXPECT_EQ(Heard(), "b1 a1 bx2 ax2 ");
}

TEST_F(EventSourceTest, ForgetsAListenerThatLeft) {
    source.Add(a);
    source.Add(b);
    source.Remove(a);
    source.Remove(c);  // never came
    Raise(1);
    EXPECT_EQ(Heard(), "b1 ");
}

TEST_F(EventSourceTest, TellsAListenerAsOftenAsItCame) {
    source.Add(a);
    source.Add(a);
    Raise(1);
    source.Remove(a);
    Raise(2);
    EXPECT_EQ(Heard(), "a1 a1 a2 ");
}

TEST_F(EventSourceTest, LetsAListenerLeaveWhileItHears) {
    for (Listener* listener : {&a, &b, &c}) source.Add(*listener);
    b.act = [&](int) { source.Remove(b); };
    Raise(1);
    Raise(2);
    EXPECT_EQ(Heard(), "a1 b1 c1 a2 c2 ");
}

TEST_F(EventSourceTest, SaysNothingMoreToOneThatAnotherSentAway) {
    for (Listener* listener : {&a, &b, &c}) source.Add(*listener);
    a.act = [&](int) { source.Remove(b); };
    c.act = [&](int) { source.Remove(a); };
    Raise(1);
    Raise(2);
    EXPECT_EQ(Heard(), "a1 c1 c2 ");
}

TEST_F(EventSourceTest, TellsANewcomerFromTheNextEventOn) {
    source.Add(a);
    a.act = [&](int value) {
        if (value == 1) source.Add(b);
    };
    Raise(1);
    Raise(2);
    EXPECT_EQ(Heard(), "a1 a2 b2 ");
}

TEST_F(EventSourceTest, SurvivesManyNewcomersAtOnce) {
    source.Add(a);
    a.act = [&](int) {
        for (int i = 0; i < 100; ++i) source.Add(b);
        a.act = nullptr;
    };
    source.Add(c);
    Raise(1);
    EXPECT_EQ(Heard(), "a1 c1 ");
    for (int i = 0; i < 100; ++i) source.Remove(b);
    Raise(2);
    EXPECT_EQ(Heard(), "a2 c2 ");
}

TEST_F(EventSourceTest, TakesOneThatLeavesAndComesBackForANewcomer) {
    for (Listener* listener : {&a, &b}) source.Add(*listener);
    a.act = [&](int value) {
        if (value != 1) return;
        source.Remove(a);
        source.Add(a);
    };
    Raise(1);
    Raise(2);
    EXPECT_EQ(Heard(), "a1 b1 b2 a2 ");
}

TEST_F(EventSourceTest, TellsAnEventRaisedByAListenerAtOnce) {
    for (Listener* listener : {&a, &b}) source.Add(*listener);
    a.act = [&](int value) {
        if (value < 3) Raise(value + 1);
    };
    Raise(1);
    EXPECT_EQ(Heard(), "a1 a2 a3 b3 b2 b1 ");
}

TEST_F(EventSourceTest, KeepsItsPlacesWhileAnInnerEventSendsListenersAway) {
    for (Listener* listener : {&a, &b, &c}) source.Add(*listener);
    b.act = [&](int value) {
        if (value == 1) {
            source.Remove(a);
            source.Add(a);
            Raise(2);  // the newcomer hears this one, but not the rest of the first
        } else if (value == 2) {
            source.Remove(b);
        }
    };
    Raise(1);
    Raise(3);
    EXPECT_EQ(Heard(), "a1 b1 b2 c2 a2 c1 c3 a3 ");
}

TEST_F(EventSourceTest, LetsAListenerDieOnceItLeft) {
    auto brief = std::make_unique<Listener>("d", heard);
    source.Add(a);
    source.Add(*brief);
    a.act = [&](int) {
        if (!brief) return;
        source.Remove(*brief);
        brief.reset();
    };
    Raise(1);
    EXPECT_EQ(Heard(), "a1 ");
}

TEST_F(EventSourceTest, IsInOrderAfterAListenerThrew) {
    for (Listener* listener : {&a, &b}) source.Add(*listener);
    a.act = [&](int value) {
        source.Remove(a);
        if (value == 1) throw std::runtime_error("a listener gave up");
    };
    EXPECT_THROW(Raise(1), std::runtime_error);
    Raise(2);
    source.Add(a);
    a.act = nullptr;
    Raise(3);
    EXPECT_EQ(Heard(), "a1 b2 b3 a3 ");
}

}  // namespace
}  // namespace mrlxmlclass
