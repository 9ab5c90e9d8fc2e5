#include "project/ObjectPrivate_p.h"

Plotka::ObjectPrivate::~ObjectPrivate() = default;
