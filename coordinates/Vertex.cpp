#include "Vertex.h"

VertexRef cloneLocation(const Vertex& source) {
    auto copy = std::make_shared<Vertex>();
    copy->label = source.label;
    copy->checked = source.checked;
    copy->selected = source.selected;
    copy->lat = source.lat;
    copy->lat_Degr = source.lat_Degr;
    copy->lat_min = source.lat_min;
    copy->lat_sec = source.lat_sec;
    copy->lat_Hemisphere = source.lat_Hemisphere;
    copy->lon = source.lon;
    copy->lon_degr = source.lon_degr;
    copy->lon_min = source.lon_min;
    copy->lon_sec = source.lon_sec;
    copy->lon_Hemisphere = source.lon_Hemisphere;
    copy->utmE = source.utmE;
    copy->utmN = source.utmN;
    copy->utmZ = source.utmZ;
    copy->saved = source.saved;
    return copy;
}
