#pragma once

#include "desktop/qt/module.h"

#include <QLoggingCategory>

#include <future>
#include <memory>
#include <string>

namespace desktop {

// The adapter of a port in a module that the first use loads, so that the libraries behind it do not slow the
// start.
template <typename Port>
class LazyModule {
public:
    // The path of the shared library, in UTF-8; the name of its function that creates the adapter.
    LazyModule(std::string path, const char* maker) : path_(std::move(path)), maker_(maker) {}

    // Loads the library in the background, so that the first use need not wait for it.
    void prepare() { read(std::launch::async); }

    // The adapter, created by the first call. Null if there is none; the log then has the reason, once.
    Port* load() {
        if (!port_ && failure_.empty())
            create();
        return port_.get();
    }
    // The adapter if it has been created, otherwise null.
    Port* get() const { return port_.get(); }
    // Why load() returned null, in the system's words.
    const std::string& failure() const { return failure_; }

    // Destroys the adapter; the library stays. The next load() creates another one.
    void release() { port_.reset(); }

    // The library's function of this name; null if there is none.
    template <typename Function>
    Function function(const char* name) {
        read(std::launch::deferred);
        return reading_.get().template function<Function>(name);
    }

private:
    void read(std::launch when) {
        if (!reading_.valid())
            reading_ = std::async(when, [path = path_] { return Module(path); }).share();
    }

    void create() {
        using Make = Port* (*)();
        const auto make = function<Make>(maker_);
        if (make)
            port_.reset(make());
        if (port_)
            return;
        failure_ = make ? path_ + ": it did not start" : reading_.get().failure();
        if (failure_.empty())
            failure_ = path_ + ": no function " + maker_;
        qCritical("A module could not be loaded: %s", failure_.c_str());
    }

    std::string path_;
    const char* maker_;
    std::shared_future<Module> reading_;
    std::unique_ptr<Port> port_;
    std::string failure_;
};

} // namespace desktop
