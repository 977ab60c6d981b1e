// What makes a forms test fail softly: each of its tests runs by itself, and none that goes wrong hides another.
#pragma once

#include "tests/support/ScriptedInterface.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMetaMethod>
#include <QTest>

namespace velmora {

/// Fails the test, which goes on.
inline void FailSoftly(const std::string& text) {
    QTest::qFail(text.c_str(), __FILE__, __LINE__);
}

/// A warning of Qt's is a fault of ours.
inline void FailOnWarnings() {
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtWarningMsg && !text.startsWith("This plugin does not support"))
            FailSoftly("Qt warns: " + text.toStdString());
        else if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
}

/// Fails the test, which ends here.
[[noreturn]] inline void FailAndEnd(const std::string& text) {
    FailSoftly(text);
    throw TestOver();
}

/// A control of a form by its name.
template <typename Control> Control& Get(const QWidget& form, const QString& name) {
    auto* control = form.findChild<Control*>(name);
    if (!control)
        FailAndEnd("no control " + name.toStdString());
    return *control;
}
inline void Click(const QWidget& form, const QString& name) {
    auto& button = Get<QAbstractButton>(form, name);
    if (!button.isEnabled())
        FailSoftly("not to be clicked: " + name.toStdString());
    button.click();
}

template <typename Tests> QStringList TestNames() {
    QStringList names;
    const QMetaObject& all = Tests::staticMetaObject;
    for (int i = all.methodOffset(); i < all.methodCount(); ++i)
        if (const QString name = all.method(i).name(); name != "init" && !name.endsWith("_data"))
            names << name;
    return names;
}

/// Runs the tests named, or all of a suite's where none is; how many failed.
template <typename Tests> int RunTests(const QStringList& names) {
    int failed = 0;
    for (const QString& name : names.empty() ? TestNames<Tests>() : names)
        try {
            Tests tests;
            failed += QTest::qExec(&tests, {QApplication::arguments()[0], name});
        } catch (const TestOver&) {
            ++failed;
        }
    return failed;
}

using Suites = std::map<QString, int (*)(const QStringList& names)>;

/// The program's by their names: each source brings its own.
inline Suites& AllSuites() {
    static Suites suites;
    return suites;
}

} // namespace velmora

#define FORMS_TESTS(Tests)                                                                                             \
    [[maybe_unused]] static const bool k##Tests = velmora::AllSuites().emplace(#Tests, velmora::RunTests<Tests>).second;
