// Another copy of the program that is started for the same folder brings this one to the front.
#pragma once

#include <memory>

#include <QObject>

#include "platform/instance_lock.h"

namespace views {

class QtToolkit;

/// Listens as long as it lives. A null bell is never heard.
class AnswersDoorbell final : public QObject {
  public:
    AnswersDoorbell(std::unique_ptr<platform::Doorbell> bell, QtToolkit& toolkit);
    ~AnswersDoorbell() override;

  private:
    std::unique_ptr<platform::Doorbell> bell_;
    std::unique_ptr<QObject> waits_;
};

} // namespace views
