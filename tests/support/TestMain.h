#pragma once

#include "app/core/Fonts.h"
#include "app/core/Identity.h"
#include "tests/support/Patience.h"
#include "tests/support/TestHome.h"

#include <QApplication>
#include <QLocale>
#include <QtTest>

/// The main function of a test program: a home of its own, the program's identity, an English locale.
#define KELMAR_TEST_MAIN(TestClass)                                                                          \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        qSetGlobalQHashSeed(0);                                                                              \
        TestHome home;                                                                                       \
        QApplication application(argc, argv);                                                                \
        Identity::applyToApplication();                                                                      \
        substituteMissingFonts();                                                                            \
        home.reset();                                                                                        \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
