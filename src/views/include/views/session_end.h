// The end of the user's session, or of the program by a signal: it ends as if its window was
// closed.
#pragma once

#include <memory>

#include <QObject>
#include <QTimer>

class QSocketNotifier;

namespace views {

class QtToolkit;

/// From its making on a wish that the program end closes the main window: what is chosen is applied
/// and saved. What runs is finished first; windows over it are closed, and whatever is asked
/// meanwhile is answered by its default. No program is started any more.
class SessionEnd final : public QObject {
  public:
    explicit SessionEnd(QtToolkit& toolkit);
    ~SessionEnd() override;

  private:
    void closeOne();

    QtToolkit& toolkit_;
    std::unique_ptr<QSocketNotifier> signals_;
    QTimer closing_;
};

} // namespace views
