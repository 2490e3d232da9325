#pragma once

#include "Foundation/Subscription.h"
#include "Views/Qt/ViewEngine.h"

#include <QObject>
#include <QQmlParserStatus>
#include <QtQml/qqmlregistration.h>

#include <utility>
#include <vector>

namespace orvelle {

/// Ties a view's QML half to its C++ half. QML makes one inside the view, so that it lives, and
/// watches the managers, only as long as the view does.
class Binding : public QObject, public QQmlParserStatus {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ANONYMOUS

public:
    void classBegin() override;
    void componentComplete() override {}

protected:
    /// Called once, before QML reads any property: makes the C++ half and follows its sources.
    virtual void attach(const ViewEnvironment& environment) = 0;
    /// Shows what the C++ half decides now. Any number of changes within one turn of the event
    /// loop gives one refresh after it.
    virtual void refresh() = 0;

    /// Refreshes after each change of these published values or settings.
    template <class... Sources>
    void follow(const Sources&... sources) {
        (subscriptions_.push_back(sources.observe([this](const auto&) { refreshLater(); })), ...);
    }

private:
    void refreshLater();

    std::vector<Subscription> subscriptions_;
    bool isAttached_ = false;
    bool isRefreshPending_ = false;
};

} // namespace orvelle

/// A property of a binding. QML hears of a change only when the value is another one:
/// `show_name(value)` compares.
#define ORVELLE_SHOWN(Type, name)                                                                  \
    Q_PROPERTY(Type name READ name NOTIFY name##Changed FINAL)                                     \
public:                                                                                            \
    const Type& name() const {                                                                     \
        return name##_;                                                                            \
    }                                                                                              \
    Q_SIGNAL void name##Changed();                                                                 \
                                                                                                   \
private:                                                                                           \
    void show_##name(Type value) {                                                                 \
        if (value == name##_)                                                                      \
            return;                                                                                \
        name##_ = std::move(value);                                                                \
        Q_EMIT name##Changed();                                                                    \
    }                                                                                              \
    Type name##_{};

/// A constant of the C++ half, by the same name.
#define ORVELLE_CONSTANT(Type, name, Half)                                                         \
    Q_PROPERTY(Type name READ name CONSTANT FINAL)                                                 \
public:                                                                                            \
    Type name() const {                                                                            \
        return toQt(Half::name);                                                                   \
    }                                                                                              \
                                                                                                   \
private:

/// A list of a binding, as a model that QML iterates over.
#define ORVELLE_LIST(Row, name)                                                                    \
    Q_PROPERTY(QAbstractItemModel* name READ name CONSTANT FINAL)                                  \
public:                                                                                            \
    QAbstractItemModel* name() {                                                                   \
        return &name##_;                                                                           \
    }                                                                                              \
                                                                                                   \
private:                                                                                           \
    ListModel<Row> name##_;
