/// \file
/// What the examples in the public headers take for given: the names of an application.
#pragma once

#include <kyr/core/KyrStructVector.h>

#include <QCoreApplication>
#include <QString>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <functional>
#include <future>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

extern double point;
extern std::vector<double> points;
extern int width;
extern char room[1000];
extern QString name;
extern Kyr::StructVector<unsigned char> packed;
extern std::istream& in;
extern std::FILE* stream;

void save(const char* bytes, std::streamsize count);
void work();
void readOne(const QString& one);
void measure();
bool convert(const QString& one);
double lengthIn(const QString& one);
void sortByName(const std::vector<QString>& names);
void sortByLength(std::vector<double>& lengths);
void greyOutTheButton();
void whenPressed(const std::function<void()>& action);
