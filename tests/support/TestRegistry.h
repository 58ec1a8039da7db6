#pragma once
// Test classes register themselves; the test executable's main runs them all.
#include <QObject>
#include <QStringList>
#include <functional>
#include <map>
#include <vector>

namespace TestRegistry {
using Factory = std::function<QObject*()>;
std::vector<std::pair<const char*, Factory>>& All();
struct Add {
    Add(const char* name, Factory f) { All().emplace_back(name, std::move(f)); }
};

// Routines that a test runs in a second process: `test_x --child <name> args`.
using ChildMain = std::function<int(const QStringList& args)>;
std::map<QString, ChildMain>& Children();
struct AddChild {
    AddChild(const char* name, ChildMain f) {
        Children()[QString::fromLatin1(name)] = std::move(f);
    }
};
}  // namespace TestRegistry

#define CS_CHILD(Name, Function) \
    static TestRegistry::AddChild cs_child_registration_##Name(#Name, Function);
#define CS_TEST(Class) \
    static TestRegistry::Add cs_test_registration_##Class(#Class, [] { return new Class; });
