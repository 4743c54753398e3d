#pragma once

#include <QObject>

namespace quorvale {

/// Hears when the system or a terminal wants the program to end: SIGHUP, SIGINT and SIGTERM, unless
/// whoever started it has them ignored. One object at a time.
class EndingSignals final : public QObject {
    Q_OBJECT

public:
    explicit EndingSignals(QObject* parent = nullptr);
    ~EndingSignals() override;

signals:
    /// Comes in the event loop, where everything may be done.
    void arrived();

private:
    void take();

    int readEnd_ = -1;
};

}  // namespace quorvale
