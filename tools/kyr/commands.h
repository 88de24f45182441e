/// \file
/// The commands of the tool. Each gives the exit code, and throws UsageError or FileError.
#pragma once

#include "arguments.h"

namespace KyrTool {

/// Converts a value; the arguments are VALUE FROM TO, or QUANTITY TO as people type them.
int convert(const Arguments& arguments);
/// Lists the kinds of quantities, or the units of one.
int units(const Arguments& arguments);
/// Shows a zip stream's header and the statistics of its blocks.
int zipInfo(const Arguments& arguments);
/// Says whether a zip stream is complete, and if not, where it ends or is damaged.
int zipVerify(const Arguments& arguments);
/// Writes the content of a zip stream to standard output.
int zipCat(const Arguments& arguments);
/// Writes what a damaged zip stream still holds.
int zipSalvage(const Arguments& arguments);
/// Makes a zip stream of a file.
int zipPack(const Arguments& arguments);
/// Lists the files of a tar.gz.
int tarList(const Arguments& arguments);
/// Makes a tar.gz of files and directories.
int tarCreate(const Arguments& arguments);
/// Writes the files of a tar.gz into a directory.
int tarExtract(const Arguments& arguments);
/// Writes a file as Base64.
int base64Encode(const Arguments& arguments);
/// Writes the bytes that a file of Base64 stands for.
int base64Decode(const Arguments& arguments);
/// Writes the checksums of files.
int crc16(const Arguments& arguments);
/// Sorts the lines of a file, by default of standard input, in natural order.
int sortLines(const Arguments& arguments);
/// Writes the next free name of a numbered series.
int nextName(const Arguments& arguments);
/// Writes the library's change log as a page.
int changelog(const Arguments& arguments);
/// Writes an archive with what support wants to know about this machine.
int writeReport(const Arguments& arguments);
/// Names the functions and lines of a crash report or a dump.
int symbolize(const Arguments& arguments);
/// Shows where the time of a traced program went.
int traceSummary(const Arguments& arguments);
/// Shows versions, directories and the machine in short.
int showInfo(const Arguments& arguments);

}  // namespace KyrTool
