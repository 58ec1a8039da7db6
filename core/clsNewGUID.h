#pragma once
#include <QString>

// Makes the keys of the data file: 38 characters, upper-case hexadecimal in
// braces with dashes, as "{308D7A28-0405-4A3F-AE2C-0A52E6B7901B}". With
// blReplace the braces and dashes are left out (32 hexadecimal digits).
class clsNewGUID {
public:
    QString GUID(bool blReplace = false) const;
};
