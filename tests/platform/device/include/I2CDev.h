#pragma once

#include <string>

// Larger than the substitute's: it is this header that the library must have been compiled with.
class I2CDev
{
public:
    I2CDev(std::string bus);
    ~I2CDev();
    int open(unsigned char address);
    bool read(unsigned char* data, unsigned long len, unsigned char* reg, unsigned long reglen);
    bool write(unsigned char* data, unsigned long len);

private:
    char scratch_[4096];
};
