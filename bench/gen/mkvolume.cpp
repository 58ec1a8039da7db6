// Makes a data file of realistic volume: mkvolume out.mdb [goods] [articles] [sale lines]
#include <QCoreApplication>
#include <cstdio>

#include "VolumeData.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: mkvolume out.mdb [goods] [articles] [sale lines]\n");
        return 2;
    }
    VolumeData::Volume v;
    if (argc > 2) v.goods = std::atoi(argv[2]);
    if (argc > 3) v.articles = std::atoi(argv[3]);
    if (argc > 4) v.saleLines = std::atoi(argv[4]);
    return VolumeData::Make(QString::fromLocal8Bit(argv[1]), v) ? 0 : 1;
}
