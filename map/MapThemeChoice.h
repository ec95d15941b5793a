#pragma once
// Which of the map's looks a map type shows, from what is there: the tile servers that have
// answered and the offline imagery tiled on this machine. The map is never blank: a look whose
// tiles cannot come falls back to one that can.
//
//   type           Sentinel-2 answered   imagery tiled   OpenStreetMap answered   look
//   0 Standard     -                     -               yes                      OpenStreetMap
//   0 Standard     -                     -               no                       plain
//   1 Satellite    yes                   -               -                        satellite online
//   1 Satellite    no                    yes             -                        satellite
//   1 Satellite    no                    no              -                        plain
//   2 Hybrid       as Satellite, with the hybrid looks
// Any other type reads as Standard. Looks are Marble theme ids ("earth/plain/plain.dgml").

#include <QString>
#include <QStringList>

namespace MapThemeChoice {

struct Sources {
    bool openStreetMap = false; // its tile server answered
    bool sentinel2 = false;     // its tile server answered
    bool imageryReady = false;  // the offline Blue Marble tiles are made
};

QString themeFor(int mapType, const Sources& sources);

// The looks of our own, by folder name: each is installed as earth/<name>/<name>.dgml.
const QStringList& ownThemeNames();

// The credit an online look must show on the map; empty for an offline look.
QString attribution(const QString& themeId);

} // namespace MapThemeChoice
