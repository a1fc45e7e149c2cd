#include <QString>

#include <cstdio>

// Forgets a text, so that the test run shows that it would notice.
int main(int argc, char**) {
    auto* forgotten = new QString(argc + 100, QLatin1Char('x'));
    std::printf("%d\n", static_cast<int>(forgotten->size()));
    forgotten = nullptr;
    return 0;
}
