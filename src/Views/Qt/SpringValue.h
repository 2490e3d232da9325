#pragma once

#include "Core/Animation/Spring.h"

#include <QObject>
#include <QQmlParserStatus>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace orvelle {

/// A number that follows its target as on a spring. A new target on the way carries the speed on.
/// At rest it costs nothing.
class SpringValue : public QObject, public QQmlParserStatus {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_PROPERTY(double target READ target WRITE setTarget NOTIFY targetChanged FINAL)
    Q_PROPERTY(double value READ value NOTIFY valueChanged FINAL)
    Q_PROPERTY(double response READ response WRITE setResponse NOTIFY curveChanged FINAL)
    Q_PROPERTY(double dampingFraction READ dampingFraction WRITE setDampingFraction NOTIFY
                   curveChanged FINAL)
    Q_PROPERTY(double delay MEMBER delay_ FINAL)
    Q_PROPERTY(double restDistance MEMBER restDistance_ FINAL)
    Q_PROPERTY(bool running READ isRunning NOTIFY runningChanged FINAL)

public:
    explicit SpringValue(QObject* parent = nullptr);
    ~SpringValue() override;

    double target() const { return target_; }
    /// The first target is taken without a movement.
    void setTarget(double target);
    double value() const { return value_; }
    double response() const { return spring_.response; }
    void setResponse(double response);
    double dampingFraction() const { return spring_.dampingFraction; }
    void setDampingFraction(double dampingFraction);
    bool isRunning() const;

    /// Stands still at `value`, which also becomes the target.
    Q_INVOKABLE void jump(double value);

    void classBegin() override { isComplete_ = false; }
    void componentComplete() override;

Q_SIGNALS:
    void targetChanged();
    void valueChanged();
    void curveChanged();
    void runningChanged();

private:
    class Movement;

    /// Another curve on the way goes on from where the value stands.
    void bend();
    void start();
    void moveTo(Seconds time);
    void setValue(double value);

    Spring spring_;
    double target_ = 0;
    double value_ = 0;
    Seconds delay_ = 0;          ///< before a movement from rest begins
    double restDistance_ = 0.05; ///< nearer than this, and as slow, the value is at its target
    double velocity_ = 0;
    Spring::Motion initial_{0, 0};
    bool isComplete_ = true;
    std::unique_ptr<Movement> movement_;
};

} // namespace orvelle
