#include <iostream>

#include <ubxController.h>

int main()
{
    ubxController receiver;
    signed char minCNo = 0;
    const int status = receiver.getMinCNo(minCNo);
    std::cout << "status " << status << ", " << int{minCNo} << " dBHz" << std::endl;
    return status;
}
