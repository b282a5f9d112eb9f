#pragma once

/// All value types of the model.
#include <Types/BaseType.h>
#include <Types/Collection.h>
#include <Types/Identifiers.h>
#include <Types/Integers.h>
#include <Types/LocalTag.h>
#include <Types/RGBALayout.h>
#include <Types/Rational.h>
#include <Types/StringRepresentation.h>
#include <Types/Strings.h>
#include <Types/UID.h>
