// What long work tells whoever watches it. The core writes here and never knows whether a window, a
// terminal or nobody reads.
#pragma once

#include <cstddef>
#include <string>

namespace platform {

/// Called in the order of the work and in its own thread. Texts have no line end.
class Log {
  public:
    Log() = default;
    virtual ~Log() = default;
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    /// A new stretch of the work begins. The first one opens the log.
    virtual void stage(const std::string& text) = 0;
    /// One thing that is being done, or was.
    virtual void line(const std::string& text) = 0;
    /// Called between two steps, once for each file, folder or line of a file. Whoever shows the
    /// log may paint here. Nothing that runs in here changes what the work goes on with.
    virtual void breathe() = 0;
    /// How far the stretch at hand has come, where that is known.
    virtual void progress(std::size_t /*done*/, std::size_t /*all*/) {}
};

/// Work that nobody watches.
class NoLog final : public Log {
  public:
    void stage(const std::string& /*text*/) override {}
    void line(const std::string& /*text*/) override {}
    void breathe() override {}
};

} // namespace platform
