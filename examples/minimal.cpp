// The smallest caller: finds the receiver and prints where it is.

#include <iostream>
#include <string>

#include <ubxController.h>

int main()
{
    ubxController receiver; // finds the board and the receiver's model; without an answer that takes 9 seconds
    receiver.setAntennaPower("ON");

    std::string position;
    const int status = receiver.getNavsolution("POS", position);
    if (status == 0) {
        std::cout << position << std::endl;
    } else {
        std::cerr << "no position: status " << status << std::endl;
    }
    return status;
}
