#pragma once
// Test classes register themselves; the test executable's main runs them all.
#include <QObject>
#include <functional>
#include <vector>

namespace TestRegistry {
using Factory = std::function<QObject*()>;
std::vector<std::pair<const char*, Factory>>& All();
struct Add {
    Add(const char* name, Factory f) { All().emplace_back(name, std::move(f)); }
};
}  // namespace TestRegistry

#define CS_TEST(Class) \
    static TestRegistry::Add cs_test_registration_##Class(#Class, [] { return new Class; });
