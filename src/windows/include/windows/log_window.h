// The log beside running work: the text window as the place where the core tells what it does.
#pragma once

#include <string>
#include <vector>

#include "platform/log.h"
#include "windows/frmShowReadme.h"
#include "windows/toolkit.h"

namespace windows {

class LogWindow final : public platform::Log {
  public:
    /// The bar shows the work's progress in the other window while this one is closed.
    LogWindow(Toolkit& toolkit, frmShowReadme& window, ProgressBar& barElsewhere)
        : toolkit_(toolkit), window_(window), barElsewhere_(barElsewhere) {}

    /// Whether the window shows before its first text or with it.
    enum class Shows { atOnce, withText };

    /// From here to `close` the lines of the core stand in the window.
    void open(const std::string& title, const std::string& heading, Shows when);
    void close();

    void stage(const std::string& text) override;
    void line(const std::string& text) override;
    /// Lets the windows live, also where no log is open. A user who closes the log hides it and
    /// stops nothing.
    void breathe() override;
    void progress(std::size_t done, std::size_t all) override;

    /// A question that was answered by an earlier one. The next log begins with those that came
    /// while none was open.
    void tellAnsweredAlike(const std::string& text);

  private:
    Toolkit& toolkit_;
    frmShowReadme& window_;
    ProgressBar& barElsewhere_;
    bool isOpen_ = false;
    bool hasText_ = false;
    bool hasProgress_ = false;
    std::vector<std::string> answeredAlike_;
};

} // namespace windows
