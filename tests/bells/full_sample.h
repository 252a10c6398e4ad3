#pragma once

namespace orlo
{

// The rings of the full samples as they are exported: terminal 1 has six, terminal 4 four.

inline const char kTerminal1[] =
    "1,1,8,0,\"01111100\",1,3\n"
    "1,2,12,0,\"10000011\",2,4\n"
    "1,3,13,30,\"01111100\",1,5\n"
    "1,4,17,30,\"10000011\",2,6\n"
    "1,5,18,0,\"01111100\",1,7\n"
    "1,6,6,5,\"10000011\",2,8\n";
inline const char kTerminal4[] =
    "4,1,8,5,\"01111110\",2,5\n"
    "4,2,12,5,\"01111110\",2,5\n"
    "4,3,13,35,\"01111110\",2,5\n"
    "4,4,17,35,\"01111110\",2,5\n";

}  // namespace orlo
