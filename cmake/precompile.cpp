// Nothing: the target that parses the headers for all others must have a source.
