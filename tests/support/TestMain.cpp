// Test entry: the locale is pinned so that number texts are the same on every machine, and the
// default datum is made as application start makes it.

#include "coordinates/LatLon_UTM.h"

#include <QLocale>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    QLocale::setDefault(QLocale::c());
    LatLon_UTM::wgs84 = LatLon_UTM::makeWGS84();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
