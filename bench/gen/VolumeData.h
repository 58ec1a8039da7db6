#pragma once
// Fills a fresh copy of the delivered data file with the volume of a busy
// shop, for the benchmarks: goods rows over many article numbers with their
// history rows and cost layers, and sale lines over two years with returns,
// exchanges and voids among them.
#include <QString>

namespace VolumeData {

struct Volume {
    int goods = 100000;       // Store rows (each with one history row and one layer)
    int articles = 5000;      // distinct article numbers
    int saleLines = 1000000;  // Sell rows over two years
};

// Makes `path` as a copy of the delivered data file and fills it. Returns
// false on failure.
bool Make(const QString& path, const Volume& v);

// A data file of the given volume, made once and kept under the system's
// temporary folder by its size and the delivered schema, so repeated
// benchmark runs reuse it and a changed schema (a new index) makes a new one.
QString Cached(const Volume& v);

// The article number of article i, as the generator writes it ("ZM00042").
QString ArticleNo(int i);

}  // namespace VolumeData

namespace VolumeData {
// Opens the session on a data file (as start-up does) with the default shop
// and the administrator logged in.
bool OpenSession(const QString& path);
}  // namespace VolumeData
