#include "Tests/Support/RunTests.h"

#include <QGuiApplication>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    return test::runTests(argc, argv);
}
