#include "startup/Resources.h"

#include <QDir>

void loadStartupResources() {
    Q_INIT_RESOURCE(startup);
}
