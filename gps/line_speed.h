#pragma once

namespace norvane {

// Sets the input and output speed of the terminal fd to rate bits per second,
// any rate the driver accepts and not only the standard ones (14400, 56000).
// Every other setting of the line stays. False when the driver refuses.
bool SetLineSpeed(int fd, int rate);

// The output speed of the terminal fd in bits per second, or -1.
int LineSpeed(int fd);

}  // namespace norvane
