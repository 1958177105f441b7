#include "Counted.h"

void counted(const std::function<void()>& work) {
    work();
}
